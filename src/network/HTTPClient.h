#pragma once

#include "network/URLRequestBuilder.h"
#include "platform/URLSession.h"
#include "reactive/ObservableType.h"

#include <string>

namespace orrelo {

struct HTTPReply {
  std::string data;
  HTTPURLResponse response;
};

/// Runs requests. The stream is cold: each subscription makes a new request, disposing of it cancels the
/// request, and the reply arrives on the session's thread.
class HTTPClient {
 public:
  virtual ~HTTPClient() = default;

  /// One reply of any status, then completion; or URLError, or NetworkError nonHttpResponse.
  virtual reactive::Observable<HTTPReply> run(URLRequest request) = 0;
};

/// On the platform's URL session.
class HTTPClientImpl final : public HTTPClient {
 public:
  reactive::Observable<HTTPReply> run(URLRequest request) override;
};

/// The status filter: the reply when its status is 200 to 299, else NetworkError invalidHttpStatusCode.
reactive::Observable<HTTPReply> requireSuccess(const HTTPReply& reply);

/// Builds, runs and filters: the chain of every service call. A request that cannot be built is an immediate
/// error.
reactive::Observable<HTTPReply> send(const URLRequestBuilder& builder, HTTPClient& client);

}  // namespace orrelo
