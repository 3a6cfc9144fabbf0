#pragma once

#include "platform/http/HttpUrl.h"

#include <orrelo/platform/URLSession.h>

#include <array>
#include <chrono>
#include <curl/curl.h>
#include <memory>
#include <mutex>
#include <optional>
#include <string>

namespace orrelo {

/// The certificate file that replaces the system's certificates for one origin.
struct TrustedOrigin {
  std::string origin;
  std::string certificateFile;
};

/// One request and its redirects. Once it is queued, only `cancel` and `isOver` may be called outside the
/// session's thread.
class CurlTransfer {
 public:
  CurlTransfer(URLRequest request, URLSession::Completion completion);
  /// Bytes that `deliver` has not passed to `delegate` are delivered at the end of the transfer.
  CurlTransfer(URLRequest request, std::shared_ptr<URLSessionDataDelegate> delegate);
  ~CurlTransfer();

  /// Starts or restarts the request's timeout.
  void startClock();
  /// The deadline of an idle timeout; nullopt if the timeout limits the whole transfer, which curl enforces.
  std::optional<std::chrono::steady_clock::time_point> idleDeadline() const;
  /// The deadline for a request that has not started yet; nullopt if it has an idle timeout.
  std::optional<std::chrono::steady_clock::time_point> waitingDeadline() const;
  /// Passes the bytes received so far to the delegate of a streaming task. Must not be called inside curl.
  void deliver();
  /// Sets up the handle for the current URL. Null if curl is out of memory.
  CURL* prepare(const std::optional<TrustedOrigin>& trusted);
  CURL* handle() const { return easy_.get(); }
  const Url& url() const { return request_.url; }
  bool hasIdleTimeout() const { return request_.isTimeoutIdle; }

  /// Handles the end of the current request. True if a redirect must be followed; otherwise the completion
  /// has run.
  bool finishRequest(CURLcode code);
  void fail(const Error& error);

  /// Prevents the completion from starting. True if it had not started yet. Any thread.
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
  /// Curl's words for a failure, and whose certificates are trusted.
  std::array<char, CURL_ERROR_SIZE> failure_{};
  std::string trust_;
  HTTPURLResponse response_;

  mutable std::mutex mutex_;
  URLSession::Completion completion_;
  std::shared_ptr<URLSessionDataDelegate> delegate_;
};

}  // namespace orrelo
