#include "navigation/ShowPageUseCase.h"

#include "base/Logger.h"
#include "base/explain.h"
#include "ui/KeyWindow.h"
#include "ui/followOnMain.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace orrelo {
namespace {

// The page with this id; the first one if several entries have the same id.
std::optional<Page> pageOf(const Config& config, const std::string& pageId) {
  const auto found = std::find_if(config.entries.begin(), config.entries.end(),
                                  [&](const Entry& entry) { return entry.pageId == pageId; });
  return found == config.entries.end() ? std::nullopt : std::optional(found->page);
}

void open(PageRouter& router, const std::string& pageId, const std::optional<Page>& page) {
  if (!page) {
    explain(ExplanationLevel::warning, [&] {
      return "showPage opens nothing, since the service's configuration has no entry \"" + pageId +
             "\": check the id, and \"entries\" in the configuration.";
    });
  }
  if (!page) return log(LogLevel::ERROR, [&] { return "Cannot find pageId: " + pageId; });
  const auto root = keyWindowRootViewController();
  if (!root) {
    explain(ExplanationLevel::error,
            "showPage opens nothing, since there is no window with an OrreloHost: make the window first.");
  }
  if (!root) return log(LogLevel::ERROR, "Cannot find UIViewController in App while showing Page");
  router.route(root->topmost(), *page);
}

}  // namespace

std::shared_ptr<ShowPageUseCaseImpl> ShowPageUseCaseImpl::create(
    std::shared_ptr<FetchConfigUseCase> fetchConfigUseCase, std::shared_ptr<PageRouter> pageRouter) {
  return std::shared_ptr<ShowPageUseCaseImpl>(
      new ShowPageUseCaseImpl(std::move(fetchConfigUseCase), std::move(pageRouter)));
}

ShowPageUseCaseImpl::ShowPageUseCaseImpl(std::shared_ptr<FetchConfigUseCase> fetchConfigUseCase,
                                         std::shared_ptr<PageRouter> pageRouter)
    : fetchConfigUseCase_(std::move(fetchConfigUseCase)),
      pageRouter_(std::move(pageRouter)),
      concurrentDispatchQueueScheduler_(
          std::make_shared<reactive::ConcurrentDispatchQueueScheduler>(QualityOfService::userInteractive)),
      mainScheduler_(reactive::MainScheduler::instance()) {}

void ShowPageUseCaseImpl::execute(const std::string& pageId) {
  const auto pages =
      fetchConfigUseCase_->fetch().map([pageId](const Config& config) { return pageOf(config, pageId); });
  followOnMain(
      pages, shared_from_this(), disposeBag_,
      [pageId](ShowPageUseCaseImpl& self, const std::optional<Page>& page) {
        open(*self.pageRouter_, pageId, page);
      },
      [](ShowPageUseCaseImpl&, const Error& error) { log(LogLevel::ERROR, error.localizedDescription()); },
      {concurrentDispatchQueueScheduler_, mainScheduler_});
}

}  // namespace orrelo
