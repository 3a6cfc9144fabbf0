#pragma once

#include "modular/ModularCampaign.h"
#include "ui/StackView.h"

#include <orrelo/Export.h>

#include <memory>
#include <string>

namespace orrelo {

/// Implemented by the screen that contains the page.
class ORRELO_EXPORT ModularCampaignViewDelegate {
 public:
  virtual ~ModularCampaignViewDelegate() = default;

  /// Participates by requesting the path as the current user.
  virtual void participate(const std::string& url) = 0;
  virtual void route(const Page& page) = 0;
  /// Reloads the campaign in the same way as the screen was opened.
  virtual void reload() = 0;
};

/// The view of a modular page: a scrolling stack of blocks on white. It is immutable; another page needs
/// another view.
class ORRELO_EXPORT ModularCampaignView final : public View,
                                                public UIComponentDelegate,
                                                public DialogComponentDelegate {
 public:
  /// Creates the view and renders all blocks.
  static std::shared_ptr<ModularCampaignView> create(ModularCampaign campaign);

  static constexpr std::string_view kindName = "ModularCampaignView";
  std::string_view kind() const override { return kindName; }

  /// Shows the dialogs of the page in order. Must be called once per build of the page.
  void showDialogs(ORLUIViewController& viewController);

  /// Called by blocks and dialogs, also after a dialog was dismissed.
  void didReceive(const Action& action) override;

  const std::shared_ptr<StackView> stackView = std::make_shared<StackView>();
  std::weak_ptr<ModularCampaignViewDelegate> delegate;

 private:
  explicit ModularCampaignView(ModularCampaign campaign);

  /// Keeps the blocks alive, since their views hold them weakly.
  const ModularCampaign modularCampaign_;
};

}  // namespace orrelo
