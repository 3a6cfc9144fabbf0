#pragma once

#include "campaign/ItunesAPIService.h"
#include "config/FetchConfigUseCase.h"

#include <memory>
#include <string>

namespace orrelo {

/// Provides the URL at which the user can update the host application.
class FetchUpdateUrlUseCase {
 public:
  virtual ~FetchUpdateUrlUseCase() = default;

  /// A cold stream of one URL or of the error of a failed lookup. Any thread.
  virtual reactive::Observable<std::string> fetch() = 0;
};

/// Returns the URL of the application's page in the store, or the link of the configuration, which may be
/// empty, if the application has no bundle identifier or the store does not know it.
class FetchUpdateUrlUseCaseImpl final : public FetchUpdateUrlUseCase {
 public:
  /// The base of the URL; the application's path is appended.
  static constexpr const char* storeLink = "itms-apps://itunes.apple.com";

  FetchUpdateUrlUseCaseImpl(std::shared_ptr<ItunesAPIService> itunesServiceApi,
                            std::shared_ptr<FetchConfigUseCase> fetchConfigUseCase,
                            std::string link = storeLink)
      : itunesServiceApi_(std::move(itunesServiceApi)),
        fetchConfigUseCase_(std::move(fetchConfigUseCase)),
        storeLink_(std::move(link)) {}

  reactive::Observable<std::string> fetch() override;

 private:
  std::shared_ptr<ItunesAPIService> itunesServiceApi_;
  std::shared_ptr<FetchConfigUseCase> fetchConfigUseCase_;
  std::string storeLink_;
};

}  // namespace orrelo
