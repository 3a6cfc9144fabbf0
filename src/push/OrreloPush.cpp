#include "push/OrreloPush.h"

#include "base/Logger.h"
#include "base/explain.h"
#include "platform/threads/onMain.h"
#include "reactive/Combining.h"

#include <orrelo/Platform.h>

#include <cstddef>
#include <optional>
#include <utility>

namespace orrelo {
namespace {

constexpr std::size_t simultaneousUploads = 4;

}  // namespace

OrreloPush::OrreloPush(std::shared_ptr<PushTokenRepository> pushTokenRepository,
                       std::shared_ptr<PushRouter> router, reactive::SchedulerPtr concurrentScheduler)
    : pushTokenRepository_(std::move(pushTokenRepository)),
      router_(std::move(router)),
      concurrentScheduler_(std::move(concurrentScheduler)) {
  startSending();
}

void OrreloPush::startSending() {
  // The line is deliberately logged on the host's thread: a subject attaches its observers at once, and only
  // the pairs change to the scheduler.
  const auto tokens =
      tokenStream_.asObservable()
          .doOn({.onNext =
                     [](const SharedToken& token) {
                       log(LogLevel::TRACE, [&] { return "token:" + description(*token) + " is set"; });
                     }})
          .map([last = SharedToken()](const SharedToken& token) mutable {
            if (!last || last->rawValue != token->rawValue) last = token;
            return last;
          });
  const auto userIds = userIdStream().asObservable().compactMap(
      [](const std::optional<std::string>& userId) { return userId; });
  reactive::combineLatest(tokens, userIds)
      .observeOn(concurrentScheduler_)  // the host's threads do not build requests
      .flatMap(
          [repository = pushTokenRepository_](const TokenOfUser& pair) {
            return repository->saveToken(*std::get<0>(pair), std::get<1>(pair)).map([pair](reactive::Unit) {
              return pair;
            });
          },
          simultaneousUploads)
      .subscribe({.onNext =
                      [](const TokenOfUser& pair) {
                        log(LogLevel::DEBUG, [&] {
                          return "Token save success. token:" + description(*std::get<0>(pair)) +
                                 ", userId:" + std::get<1>(pair);
                        });
                      },
                  .onError =
                      [](const Error& error) {
                        log(LogLevel::ERROR, [&] { return "Token save failure: " + error.description(); });
                        explain(ExplanationLevel::error, [&] {
                          return "Uploading push tokens has ended: " + error.description() +
                                 ". It begins again after the next start of the process or the next "
                                 "Orrelo::initialize.";
                        });
                      }})
      .disposedBy(disposeBag_);
}

void OrreloPush::handle(const NotificationResponse& response, std::function<void()> completion) const {
  open(response.userInfo, std::move(completion));
}

void OrreloPush::handle(const EventDictionary& userInfo,
                        std::function<void(BackgroundFetchResult)> completion) const {
  open(userInfo, [completion = std::move(completion)] {
    if (completion) completion(BackgroundFetchResult::noData);
  });
}

void OrreloPush::open(const EventDictionary& userInfo, std::function<void()> completion) const {
  if (!userInfo.contains("Orrelo")) {
    return explain(
        ExplanationLevel::info,
        "A notification without the key \"Orrelo\" is the host's own: the kit leaves it, and does not "
        "call its completion.");
  }
  onMain(*Platform::current().mainLoop,
         [router = router_, page = Page::fromUserInfo(userInfo), completion = std::move(completion)] {
           router->route(page);
           if (completion) runGuarded(completion);
         });
}

}  // namespace orrelo
