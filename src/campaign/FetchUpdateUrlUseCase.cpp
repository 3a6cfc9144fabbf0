#include "campaign/FetchUpdateUrlUseCase.h"

#include "reactive/Observable.h"

#include <orrelo/Platform.h>

#include <algorithm>

namespace orrelo {
namespace {

reactive::Observable<std::string> configuredUrl(FetchConfigUseCase& fetchConfig) {
  return fetchConfig.fetch().map([](const Config& config) { return config.appStoreUrl; });
}

}  // namespace

reactive::Observable<std::string> FetchUpdateUrlUseCaseImpl::fetch() {
  const auto bundleId = Platform::current().mainBundle->info("CFBundleIdentifier");
  if (!bundleId) return configuredUrl(*fetchConfigUseCase_);
  return itunesServiceApi_->lookup(*bundleId).concatMap(
      [bundleId = *bundleId, link = storeLink_, fetchConfig = fetchConfigUseCase_](const auto& found) {
        const auto app = std::find_if(found.results.begin(), found.results.end(),
                                      [&](const auto& each) { return each.bundleId == bundleId; });
        if (app == found.results.end()) return configuredUrl(*fetchConfig);
        return reactive::just(link + "/app/id" + std::to_string(app->trackId));
      });
}

}  // namespace orrelo
