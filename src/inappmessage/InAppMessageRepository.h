#pragma once

#include "inappmessage/InAppMessage.h"
#include "network/HTTPClient.h"
#include "network/NetworkConfig.h"
#include "reactive/ObservableType.h"
#include "reactive/Scheduler.h"

#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace orrelo {

class InAppMessageRepository {
 public:
  virtual ~InAppMessageRepository() = default;

  /// The messages of the user `buid`, in the order of display. The stream is cold; it emits one list, or
  /// fails with the error of the network, the service or the decoding. Any thread.
  virtual reactive::Observable<std::vector<InAppMessage>> fetch(const std::string& buid) = 0;
};

/// GET "/in-app-message/banner". Replies are decoded on `scheduler`, not on the network's thread.
class InAppMessageRepositoryImpl final : public InAppMessageRepository {
 public:
  InAppMessageRepositoryImpl(NetworkConfig networkConfig, std::shared_ptr<HTTPClient> httpClient,
                             reactive::SchedulerPtr scheduler)
      : networkConfig_(std::move(networkConfig)),
        httpClient_(std::move(httpClient)),
        scheduler_(std::move(scheduler)) {}

  reactive::Observable<std::vector<InAppMessage>> fetch(const std::string& buid) override;

 private:
  NetworkConfig networkConfig_;
  std::shared_ptr<HTTPClient> httpClient_;
  reactive::SchedulerPtr scheduler_;
};

}  // namespace orrelo
