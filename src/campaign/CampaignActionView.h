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

/// What an action view asks its screen for.
class ORRELO_EXPORT CampaignActionViewDelegate {
 public:
  virtual ~CampaignActionViewDelegate() = default;

  /// Follows the action behind the URL as the current user.
  virtual void participate(const std::string& actionUrl) = 0;
};

/// The one button of a campaign's page, and a line on how things stand.
class ORRELO_EXPORT CampaignActionView final : public View {
 public:
  struct State {
    std::string title;
    std::string statusMessage;
    bool isEnabled = false;
    /// Of the button's background; a disabled button dims it.
    Color color;

    friend bool operator==(const State&, const State&) = default;
  };
  /// In points.
  static constexpr double buttonHeight = 56.0;

  std::string_view kind() const override { return "CampaignActionView"; }

  void configure(const CampaignAction& action, const Color& color, std::function<void()> onTap = nullptr);
  /// The button was pressed: the action first, then `onTap`. Nothing where there is nobody to ask.
  void onClick();

  Followed<State> state;
  std::weak_ptr<CampaignActionViewDelegate> delegate;

 private:
  std::optional<std::string> actionUrl_;
  std::function<void()> onTap_;
};

}  // namespace orrelo
