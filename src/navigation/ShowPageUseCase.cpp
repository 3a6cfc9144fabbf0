#include "navigation/ShowPageUseCase.h"

#include "base/Logger.h"
#include "ui/KeyWindow.h"
#include "ui/followOnMain.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace orrelo {
namespace {

// The first of several with the same id.
std::optional<Page> pageOf(const Config& config, const std::string& pageId) {
  const auto found = std::find_if(config.entries.begin(), config.entries.end(),
                                  [&](const Entry& entry) { return entry.pageId == pageId; });
  return found == config.entries.end() ? std::nullopt : std::optional(found->page);
}

void open(PageRouter& router, const std::string& pageId, const std::optional<Page>& page) {
  if (!page) return log(LogLevel::ERROR, [&] { return "Cannot find pageId: " + pageId; });
  const auto root = keyWindowRootViewController();
  if (!root) return log(LogLevel::ERROR, "Cannot find UIViewController in App while showing Page");
  router.route(root->topmost(), *page);
}

}  // namespace

std::shared_ptr<ShowPageUseCaseImpl> ShowPageUseCaseImpl::create(
    std::shared_ptr<FetchConfigUseCase> fetchConfigUseCase, std::shared_ptr<PageRouter> pageRouter) {
  return std::shared_ptr<ShowPageUseCaseImpl>(
      new ShowPageUseCaseImpl(std::move(fetchConfigUseCase), std::move(pageRouter)));
}

ShowPageUseCaseImpl::ShowPageUseCaseImpl(std::shared_ptr<FetchConfigUseCase> config,
                                         std::shared_ptr<PageRouter> router)
    : fetchConfigUseCase(std::move(config)),
      pageRouter(std::move(router)),
      concurrentDispatchQueueScheduler(
          std::make_shared<reactive::ConcurrentDispatchQueueScheduler>(QualityOfService::userInteractive)),
      mainScheduler(reactive::MainScheduler::instance()) {}

void ShowPageUseCaseImpl::execute(const std::string& pageId) {
  const auto pages =
      fetchConfigUseCase->fetch().map([pageId](const Config& config) { return pageOf(config, pageId); });
  followOnMain(
      pages, shared_from_this(), disposeBag,
      [pageId](ShowPageUseCaseImpl& self, const std::optional<Page>& page) {
        open(*self.pageRouter, pageId, page);
      },
      [](ShowPageUseCaseImpl&, const Error& error) { log(LogLevel::ERROR, error.localizedDescription()); },
      {concurrentDispatchQueueScheduler, mainScheduler});
}

}  // namespace orrelo
