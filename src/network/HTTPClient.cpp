#include "network/HTTPClient.h"

#include "base/explain.h"
#include "network/RequestHistory.h"
#include "network/explainRequest.h"
#include "reactive/Observable.h"

#include <orrelo/Platform.h>

#include <utility>

namespace orrelo {

reactive::Observable<HTTPReply> HTTPClientImpl::run(URLRequest request) {
  return reactive::create<HTTPReply>([request =
                                          std::move(request)](reactive::AnyObserver<HTTPReply> observer) {
    const auto task = Platform::current().urlSession->dataTask(
        request, [observer, history = RequestHistory(request.method, request.url)](URLSessionResult result) {
          history.end(result);
          if (result.error) {
            observer.onError(*result.error);
          } else if (result.data && result.response) {
            observer.onNext({std::move(*result.data), std::move(*result.response)});
            observer.onCompleted();
          } else {
            observer.onError(makeError(NetworkError::nonHttpResponse));
          }
        });
    task->resume();
    return reactive::Disposables::create([task] { task->cancel(); });
  });
}

reactive::Observable<HTTPReply> requireSuccess(const HTTPReply& reply) {
  const int status = reply.response.statusCode;
  if (status >= 200 && status <= 299) return reactive::just(reply);
  return reactive::error<HTTPReply>(makeError(NetworkError::invalidHttpStatusCode));
}

reactive::Observable<HTTPReply> send(const URLRequestBuilder& builder, HTTPClient& client) {
  try {
    return client.run(builder.build()).flatMap(&requireSuccess);
  } catch (const Error& error) {
    explain(ExplanationLevel::warning, [&] {
      return "A request is not sent, since \"" + builder.baseUrl + "\" and \"" + withoutQuery(builder.path) +
             "\" do not form a URL: check the application key.";
    });
    return reactive::error<HTTPReply>(error);
  }
}

}  // namespace orrelo
