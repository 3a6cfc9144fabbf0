#pragma once

#include "network/URLRequestBuilder.h"
#include "reactive/ObservableType.h"

#include <orrelo/platform/URLSession.h>

#include <string>

namespace orrelo {

struct HTTPReply {
  std::string data;
  HTTPURLResponse response;
};

/// Runs requests. The stream is cold: each subscription sends a new request, disposing of it cancels that
/// request, and the reply arrives on the session's thread.
class HTTPClient {
 public:
  virtual ~HTTPClient() = default;

  /// Emits one reply with any status and completes, or fails with a URLError or NetworkError nonHttpResponse.
  virtual reactive::Observable<HTTPReply> run(URLRequest request) = 0;
};

/// Runs requests in the platform's URL session.
class HTTPClientImpl final : public HTTPClient {
 public:
  reactive::Observable<HTTPReply> run(URLRequest request) override;
};

/// Emits the reply if its status is 200 to 299; otherwise fails with NetworkError invalidHttpStatusCode.
reactive::Observable<HTTPReply> requireSuccess(const HTTPReply& reply);

/// Builds and runs a request and requires success; every call to the service uses this chain. Fails
/// immediately if the request cannot be built.
reactive::Observable<HTTPReply> send(const URLRequestBuilder& builder, HTTPClient& client);

}  // namespace orrelo
