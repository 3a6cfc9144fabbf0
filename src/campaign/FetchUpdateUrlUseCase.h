#pragma once

#include "campaign/ItunesAPIService.h"
#include "config/ConfigRepository.h"

#include <memory>
#include <string>

namespace orrelo {

/// Where the user gets a newer version of the host application.
class FetchUpdateUrlUseCase {
 public:
  virtual ~FetchUpdateUrlUseCase() = default;

  /// A cold stream of one URL, or of the error of a lookup that failed. Any thread.
  virtual reactive::Observable<std::string> fetch() = 0;
};

/// The application's page in the store; the configuration's link, which may be empty, where the application
/// has no bundle identifier or the store does not know it.
class FetchUpdateUrlUseCaseImpl final : public FetchUpdateUrlUseCase {
 public:
  /// The application's path follows.
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
