#pragma once

#include "platform/URLSession.h"
#include "platform/http/HttpUrl.h"

#include <chrono>
#include <curl/curl.h>
#include <memory>
#include <mutex>
#include <optional>
#include <string>

namespace orrelo {

/// Which certificate file stands in for the system's, for one origin.
struct TrustedOrigin {
  std::string origin;
  std::string certificateFile;
};

/// One request with the redirects that it meets. All but `cancel` and `isOver` belong to the session's
/// thread.
class CurlTransfer {
 public:
  CurlTransfer(URLRequest request, URLSession::Completion completion);
  /// What `deliver` has not handed to `delegate` comes with the end.
  CurlTransfer(URLRequest request, std::shared_ptr<URLSessionDataDelegate> delegate);
  ~CurlTransfer();

  /// Starts the request's timeout.
  void startClock();
  /// When the request has been idle for too long, if that is its timeout. curl minds a timeout for the whole.
  std::optional<std::chrono::steady_clock::time_point> idleDeadline() const;
  /// When its time is up although it has not begun, if its timeout is one for the whole.
  std::optional<std::chrono::steady_clock::time_point> waitingDeadline() const;
  /// Hands over the bytes that came, if they are to go piece by piece. Outside curl.
  void deliver();
  /// Readies a handle for the current hop. Null where curl has no memory.
  CURL* prepare(const std::optional<TrustedOrigin>& trusted);
  CURL* handle() const { return easy_.get(); }
  const Url& url() const { return request_.url; }
  bool isIdleTimed() const { return request_.isTimeoutIdle; }

  /// What the hop ended with. True when another hop must be prepared, else the completion has run.
  bool finishHop(CURLcode code);
  void fail(const Error& error);

  /// After this the completion does not begin to run. Says whether it still could have. Any thread.
  bool cancel();
  bool isOver() const;

 private:
  struct EasyDeleter {
    void operator()(CURL* easy) const { curl_easy_cleanup(easy); }
  };
  struct ListDeleter {
    void operator()(curl_slist* list) const { curl_slist_free_all(list); }
  };

  static std::size_t onBody(char* bytes, std::size_t, std::size_t count, void* self);
  static std::size_t onHeader(char* bytes, std::size_t, std::size_t count, void* self);
  void takeHeader(std::string_view line);
  void setTimeout();
  void setHeaders();
  bool follow();
  int status() const;
  void complete(URLSessionResult result);
  URLSessionResult failureOf(CURLcode code) const;

  URLRequest request_;
  std::chrono::steady_clock::time_point deadline_;
  std::unique_ptr<CURL, EasyDeleter> easy_;
  std::unique_ptr<curl_slist, ListDeleter> headerList_;
  int redirects_ = 0;
  bool isTooLarge_ = false;
  std::size_t headerSize_ = 0;
  std::size_t bodySize_ = 0;
  std::string body_;
  HTTPURLResponse response_;

  mutable std::mutex mutex_;
  URLSession::Completion completion_;
  std::shared_ptr<URLSessionDataDelegate> delegate_;
};

}  // namespace orrelo
