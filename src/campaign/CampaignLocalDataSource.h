#pragma once

#include "campaign/Campaign.h"
#include "campaign/CampaignState.h"

#include <orrelo/UserDefaults.h>

#include <memory>
#include <utility>
#include <vector>

namespace orrelo {

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

}  // namespace orrelo
