#pragma once

#include "network/HTTPClient.h"
#include "network/NetworkConfig.h"
#include "reactive/ObservableType.h"
#include "reactive/Scheduler.h"
#include "rewards/gifticon/Gifticon.h"

#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace orrelo {

/// The service's calls for vouchers. The streams are cold and emit one list, in the order of the service, or
/// the error of the network, the service, the decoding or the mapping: one voucher that cannot be mapped
/// fails the whole list. Any thread.
class GifticonService {
 public:
  virtual ~GifticonService() = default;

  virtual reactive::Observable<std::vector<Gifticon>> fetch(const std::string& userId) = 0;
  /// Issues the voucher. Emits the user's whole list after it.
  virtual reactive::Observable<std::vector<Gifticon>> publish(const std::string& gifticonId,
                                                              const std::string& userId) = 0;
};

/// GET "/gifticons" and POST "/gifticons/download". Replies are decoded on `scheduler`, not on the network's
/// thread.
class GifticonServiceImpl final : public GifticonService {
 public:
  GifticonServiceImpl(NetworkConfig networkConfig, std::shared_ptr<HTTPClient> httpClient,
                      reactive::SchedulerPtr scheduler)
      : networkConfig_(std::move(networkConfig)),
        httpClient_(std::move(httpClient)),
        scheduler_(std::move(scheduler)) {}

  reactive::Observable<std::vector<Gifticon>> fetch(const std::string& userId) override;
  reactive::Observable<std::vector<Gifticon>> publish(const std::string& gifticonId,
                                                      const std::string& userId) override;

 private:
  reactive::Observable<std::vector<Gifticon>> listFrom(const URLRequestBuilder& builder) const;

  NetworkConfig networkConfig_;
  std::shared_ptr<HTTPClient> httpClient_;
  reactive::SchedulerPtr scheduler_;
};

}  // namespace orrelo
