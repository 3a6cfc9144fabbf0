#pragma once

#include "base/Color.h"
#include "campaign/Campaign.h"
#include "ui/View.h"

#include <orrelo/Export.h>

#include <functional>
#include <memory>
#include <optional>
#include <string>

namespace orrelo {

/// Implemented by the screen that contains the action view.
class ORRELO_EXPORT CampaignActionViewDelegate {
 public:
  virtual ~CampaignActionViewDelegate() = default;

  /// Participates through the action's URL as the current user.
  virtual void participate(const std::string& actionUrl) = 0;
};

/// The participation button of a campaign's page with a status line.
class ORRELO_EXPORT CampaignActionView final : public View {
 public:
  struct State {
    std::string title;
    std::string statusMessage;
    bool isEnabled = false;
    /// The button's background; a disabled button shows it paler.
    Color color;

    friend bool operator==(const State&, const State&) = default;
  };

  std::string_view kind() const override { return "CampaignActionView"; }

  void configure(const CampaignAction& action, const Color& color, std::function<void()> onTap = nullptr);
  /// Called when the button is pressed. Participates and then calls `onTap`. Does nothing without a delegate,
  /// a URL or if the button is disabled.
  void onClick();

  Followed<State> state;
  std::weak_ptr<CampaignActionViewDelegate> delegate;

 private:
  std::optional<std::string> actionUrl_;
  std::function<void()> onTap_;
};

}  // namespace orrelo
