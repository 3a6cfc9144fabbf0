#pragma once

#include "network/HTTPClient.h"
#include "reactive/ObservableType.h"
#include "reactive/Scheduler.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace orrelo {

struct ITunesAppData {
  std::string bundleId;
  std::int64_t trackId = 0;

  friend bool operator==(const ITunesAppData&, const ITunesAppData&) = default;
};

/// The reply of the store's lookup.
struct ITunesResponse {
  std::int64_t resultCount = 0;
  std::vector<ITunesAppData> results;

  /// Throws a DecodingError: every field is required.
  static ITunesResponse decode(std::string_view json);

  friend bool operator==(const ITunesResponse&, const ITunesResponse&) = default;
};

/// The store's public lookup service.
class ItunesAPIService {
 public:
  virtual ~ItunesAPIService() = default;

  /// A cold stream of one element or an error. Any thread.
  virtual reactive::Observable<ITunesResponse> lookup(const std::string& bundleId) = 0;
};

/// Replies are decoded on `scheduler`, not on the network's thread.
class ItunesAPIServiceImpl final : public ItunesAPIService {
 public:
  /// Plain HTTP, as the store offers it. The request contains no data of the user or the kit.
  static constexpr const char* storeUrl = "http://itunes.apple.com";

  ItunesAPIServiceImpl(std::shared_ptr<HTTPClient> httpClient, reactive::SchedulerPtr scheduler,
                       std::string baseUrl = storeUrl)
      : httpClient_(std::move(httpClient)), scheduler_(std::move(scheduler)), baseUrl_(std::move(baseUrl)) {}

  reactive::Observable<ITunesResponse> lookup(const std::string& bundleId) override;

 private:
  std::shared_ptr<HTTPClient> httpClient_;
  reactive::SchedulerPtr scheduler_;
  std::string baseUrl_;
};

}  // namespace orrelo
