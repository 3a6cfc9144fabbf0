#pragma once

#include "campaign/CampaignMapper.h"
#include "network/HTTPClient.h"
#include "network/NetworkConfig.h"
#include "reactive/ObservableType.h"
#include "reactive/Scheduler.h"

#include <orrelo/UserDefaults.h>

#include <memory>
#include <string>
#include <vector>

namespace orrelo {

/// The state of a campaign that is stored on the device.
struct CampaignState {
  std::string campaignId;
  /// The dialog of the campaign's result has been presented.
  bool popUpDialogIsShown = false;

  friend bool operator==(const CampaignState&, const CampaignState&) = default;
};

/// Stores the campaign states in a suite of user defaults. Any thread. If a save and a prune run at the same
/// time, one of them may be lost; the only effect is that a dialog is shown again.
class CampaignLocalDataSource {
 public:
  explicit CampaignLocalDataSource(std::shared_ptr<UserDefaults> userDefaults)
      : userDefaults_(std::move(userDefaults)) {}

  /// Returns an empty list if nothing is stored or the stored data cannot be decoded.
  std::vector<CampaignState> load() const;
  /// Replaces the stored state of the campaign and moves it to the end.
  void save(const CampaignState& state) const;
  /// Removes the states of all campaigns that are not listed. Always writes.
  void prune(const std::vector<Campaign>& listed) const;

 private:
  void store(std::vector<CampaignState> states) const;

  std::shared_ptr<UserDefaults> userDefaults_;
};

/// Adds the header "buid" with the user's id and replaces an existing one.
HTTPHeaders withUser(HTTPHeaders headers, const std::string& userId);

/// GET "/campaigns" and GET "/campaigns/<id>". The streams are cold and emit one element or the error of the
/// network, the service or the decoding. Replies are decoded on `scheduler`, not on the network's thread.
class CampaignRemoteDataSource {
 public:
  CampaignRemoteDataSource(NetworkConfig networkConfig, std::shared_ptr<HTTPClient> httpClient,
                           reactive::SchedulerPtr scheduler)
      : networkConfig_(std::move(networkConfig)),
        httpClient_(std::move(httpClient)),
        scheduler_(std::move(scheduler)) {}

  reactive::Observable<Campaign> fetch(const std::string& campaignId, const std::string& userId) const;
  /// The campaigns in the order of the service.
  reactive::Observable<std::vector<Campaign>> fetchAll(const std::string& userId) const;

 private:
  reactive::Observable<HTTPReply> get(const std::string& path, const std::string& userId) const;

  NetworkConfig networkConfig_;
  CampaignMapper mapper_;
  std::shared_ptr<HTTPClient> httpClient_;
  reactive::SchedulerPtr scheduler_;
};

}  // namespace orrelo
