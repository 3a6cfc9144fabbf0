#include "network/RequestHistory.h"

#include "base/RecentItems.h"
#include "base/Utf8.h"
#include "network/explainRequest.h"

#include <orrelo/Platform.h>
#include <orrelo/platform/Clock.h>

#include <utility>

namespace orrelo {
namespace {

constexpr std::size_t maximumLength = 500;

RecentItems<ORLDiagnostics::Request>& requests() {
  static auto* const requests = new RecentItems<ORLDiagnostics::Request>(ORLDiagnostics::maximumRequests);
  return *requests;
}

void add(ORLDiagnostics::Request request) {
  request.url = utf8::beginning(request.url, maximumLength);
  if (request.failure) request.failure = utf8::beginning(utf8::repaired(*request.failure), maximumLength);
  requests().add(std::move(request));
}

}  // namespace

RequestHistory::RequestHistory(std::string method, Url url)
    : method_(std::move(method)), url_(std::move(url)), start_(Platform::current().clock->steady()) {}

void RequestHistory::end(const URLSessionResult& result) const {
  const auto& clock = *Platform::current().clock;
  const auto duration = std::chrono::duration_cast<std::chrono::milliseconds>(clock.steady() - start_);
  ORLDiagnostics::Request request{clock.now(), method_, explainedUrl(url_), {}, {}, duration};
  if (result.error) {
    request.failure = result.error->description();
  } else if (result.response) {
    request.status = result.response->statusCode;
  } else {
    request.failure = "what answers there does not speak HTTP";
  }
  add(std::move(request));
  explainResult(method_, url_, result);
}

void RequestHistory::addPicture(const Url& url, const Error& failure) {
  add({Platform::current().clock->now(),
       "GET",
       withoutQuery(explainedUrl(url)),
       {},
       failure.description(),
       {}});
}

std::vector<ORLDiagnostics::Request> RequestHistory::lastRequests() {
  return requests().items();
}

}  // namespace orrelo
