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

/// What the device remembers of a campaign.
struct CampaignState {
  std::string campaignId;
  /// The dialog of its result has been presented once.
  bool popUpDialogIsShown = false;

  friend bool operator==(const CampaignState&, const CampaignState&) = default;
};

/// The states on the device, in the suite that it is given. Any thread; a save and a prune at once may lose
/// one of the two, which only shows a dialog once more.
class CampaignLocalDataSource {
 public:
  explicit CampaignLocalDataSource(std::shared_ptr<UserDefaults> userDefaults)
      : userDefaults_(std::move(userDefaults)) {}

  /// Empty where nothing is stored or where that cannot be read.
  std::vector<CampaignState> load() const;
  /// In place of what was stored for the campaign, at the end.
  void save(const CampaignState& state) const;
  /// Forgets every campaign but these. It writes in any case.
  void prune(const std::vector<Campaign>& listed) const;

 private:
  void store(std::vector<CampaignState> states) const;

  std::shared_ptr<UserDefaults> userDefaults_;
};

/// The headers of a request on behalf of a user: "buid" is the user who asks, whatever it was before.
HTTPHeaders withUser(HTTPHeaders headers, const std::string& userId);

/// GET "/campaigns" and GET "/campaigns/<id>". Cold streams of one element, or of the error of the network,
/// the service or the reply. Replies are read on `scheduler` and not on the network's thread.
class CampaignRemoteDataSource {
 public:
  CampaignRemoteDataSource(NetworkConfig networkConfig, std::shared_ptr<HTTPClient> httpClient,
                           reactive::SchedulerPtr scheduler)
      : networkConfig_(std::move(networkConfig)),
        httpClient_(std::move(httpClient)),
        scheduler_(std::move(scheduler)) {}

  reactive::Observable<Campaign> fetch(const std::string& campaignId, const std::string& userId) const;
  /// In the order of the service.
  reactive::Observable<std::vector<Campaign>> fetchAll(const std::string& userId) const;

 private:
  reactive::Observable<HTTPReply> get(const std::string& path, const std::string& userId) const;

  NetworkConfig networkConfig_;
  CampaignMapper mapper_;
  std::shared_ptr<HTTPClient> httpClient_;
  reactive::SchedulerPtr scheduler_;
};

}  // namespace orrelo
