#pragma once

#include "base/Error.h"

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

using HTTPHeaders = std::map<std::string, std::string>;

struct URLRequest {
  Url url;
  std::string method = "GET";
  /// Sent as given, empty values too, but for control characters, which become blanks, and blanks at the
  /// ends. "buid" and the kit's own headers are dropped when a redirect leaves the host.
  HTTPHeaders headers = {};
  std::optional<std::string> body = {};
  /// From the start to the last byte, or, where `isTimeoutIdle`, until the next byte.
  std::chrono::milliseconds timeout{60'000};
  bool isTimeoutIdle = false;
  /// A larger reply, or one with more than 256 KiB of headers, ends the task with `dataLengthExceedsMaximum`,
  /// and is not kept in memory.
  std::size_t maximumReplySize = std::size_t{8} * 1024 * 1024;
};

struct HTTPURLResponse {
  int statusCode = 0;
  /// Names in lower case; of a repeated header the last.
  HTTPHeaders headers;
};

/// What a task ended with: an error, or bytes with the response that they came with. A reply that is none of
/// HTTP's has no response.
struct URLSessionResult {
  std::optional<Error> error;
  std::optional<std::string> data;
  std::optional<HTTPURLResponse> response;
};

/// Errors of the network layer, in the domain "URLError".
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
Error makeError(URLError error, std::optional<std::string> message = {});

class URLSessionTask {
 public:
  virtual ~URLSessionTask() = default;

  /// Starts; once.
  virtual void resume() = 0;
  /// Ends the task without its completion, or does nothing when that has run or runs. Any thread.
  virtual void cancel() = 0;
};

/// What takes a reply as it comes in. Called on the session's own thread, one call at a time.
class URLSessionDataDelegate {
 public:
  virtual ~URLSessionDataDelegate() = default;

  /// The next bytes of the reply, of any status.
  virtual void onData(std::string_view bytes) = 0;
  /// Once, after the last bytes.
  virtual void onCompletion(const std::optional<Error>& error) = 0;
};

/// Runs HTTP requests; another URL, or one without a host, fails with `unsupportedURL`. No cookies and no
/// cache; at most 64 requests at a time, 6 of them to a host, and 20 redirects a request, to http and https
/// alone. Of those with an idle timeout there are at most 48 and 4, so that the others do not wait for what
/// may never end. A redirect that would carry a body to another host, or from https to http, is not followed.
/// Any thread.
class URLSession {
 public:
  /// Called once, on the session's own thread.
  using Completion = std::function<void(URLSessionResult)>;

  virtual ~URLSession() = default;

  virtual std::shared_ptr<URLSessionTask> dataTask(URLRequest request, Completion completion) = 0;
  /// The reply in pieces. Once `cancel` returned, at most the call that runs by then goes on.
  virtual std::shared_ptr<URLSessionTask> streamingTask(URLRequest request,
                                                        std::shared_ptr<URLSessionDataDelegate> delegate) = 0;

  /// For requests to this origin ("https://localhost:9443") the certificates in the file are the trusted
  /// ones, in place of the system's. Verification itself stays on.
  virtual void trust(std::string_view origin, const std::string& certificateFile) = 0;
};

}  // namespace orrelo
