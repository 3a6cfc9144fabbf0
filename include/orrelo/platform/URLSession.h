#pragma once

#include <orrelo/Error.h>
#include <orrelo/Export.h>
#include <orrelo/Url.h>

#include <chrono>
#include <cstddef>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace orrelo {

/// The fields of a request or reply by their names.
using HTTPHeaders = std::map<std::string, std::string>;

/// An HTTP request.
struct ORRELO_EXPORT URLRequest {
  Url url;
  std::string method = "GET";
  /// Sent as given, including empty values, except that control characters become spaces and surrounding
  /// white space is removed. All but "Content-Type" are dropped when a redirect leads to another host or
  /// from https to http.
  HTTPHeaders headers = {};
  std::optional<std::string> body = {};
  /// Limits the whole transfer or, if `isTimeoutIdle`, the time between two received bytes.
  std::chrono::milliseconds timeout{60'000};
  bool isTimeoutIdle = false;
  /// In bytes. A larger reply, or one with more than 256 KiB of headers, ends the task with
  /// `dataLengthExceedsMaximum` and is not kept in memory.
  std::size_t maximumReplySize = std::size_t{8} * 1024 * 1024;
};

/// The head of an HTTP reply.
struct ORRELO_EXPORT HTTPURLResponse {
  int statusCode = 0;
  /// Keyed by lower-case name; the last one wins if a header is repeated.
  HTTPHeaders headers;
};

/// The result of a task: an error, or the reply's bytes and response. A reply that is not HTTP has no error,
/// no bytes and no response.
struct ORRELO_EXPORT URLSessionResult {
  std::optional<Error> error;
  std::optional<std::string> data;
  std::optional<HTTPURLResponse> response;
};

/// Errors of the network layer; their domain is "URLError".
enum class URLError {
  unknown,
  badURL,
  unsupportedURL,
  timedOut,
  cannotFindHost,
  cannotConnectToHost,
  networkConnectionLost,
  secureConnectionFailed,
  httpTooManyRedirects,
  cannotDecodeContentData,
  dataLengthExceedsMaximum
};
/// The error as a stream or a completion carries it, with a text for the log.
ORRELO_EXPORT Error makeError(URLError error, std::optional<std::string> message = {});

/// One request of a session. Thread-safe.
class ORRELO_EXPORT URLSessionTask {
 public:
  virtual ~URLSessionTask() = default;

  /// Starts the task. Call it once.
  virtual void resume() = 0;
  /// Ends the task without its completion; does nothing once the completion has started. Any thread.
  virtual void cancel() = 0;
};

/// Receives a reply in pieces as they arrive. Called on the session's own thread, one call at a time.
class ORRELO_EXPORT URLSessionDataDelegate {
 public:
  virtual ~URLSessionDataDelegate() = default;

  /// Called with the next bytes of the reply, whatever its status.
  virtual void onData(std::string_view bytes) = 0;
  /// Called once, after the last bytes.
  virtual void onCompletion(const std::optional<Error>& error) = 0;
};

/// Runs HTTP requests. A URL with another scheme or without a host fails with `unsupportedURL`. Uses no
/// cookies and no cache. Follows at most 20 redirects per request, to http and https only; a redirect that
/// would send a body to another host or from https to http is not followed. Any thread.
///
/// The session runs at most 64 requests at the same time, and at most 6 per host. Requests with an idle
/// timeout may run forever, so they are limited to 48 in total and 4 per host and cannot block the others.
class ORRELO_EXPORT URLSession {
 public:
  /// Called once, on a thread of the session, and never within `resume`.
  using Completion = std::function<void(URLSessionResult)>;

  virtual ~URLSession() = default;

  virtual std::shared_ptr<URLSessionTask> dataTask(URLRequest request, Completion completion) = 0;
  /// Delivers the reply in pieces. After `cancel` has returned no further call of the delegate starts; one
  /// that is already running completes.
  virtual std::shared_ptr<URLSessionTask> streamingTask(URLRequest request,
                                                        std::shared_ptr<URLSessionDataDelegate> delegate) = 0;

  /// Replaces the system's trusted certificates by those in the file for requests to this origin (such as
  /// "https://localhost:9443"). Verification itself stays enabled.
  virtual void trust(std::string_view origin, const std::string& certificateFile) = 0;
};

}  // namespace orrelo
