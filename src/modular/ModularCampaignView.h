#pragma once

#include "modular/ModularCampaign.h"
#include "ui/StackView.h"

#include <orrelo/Export.h>

#include <memory>
#include <string>

namespace orrelo {

/// What a page asks of its screen.
class ORRELO_EXPORT ModularCampaignViewDelegate {
 public:
  virtual ~ModularCampaignViewDelegate() = default;

  /// Takes part by the path, as the current user.
  virtual void participate(const std::string& url) = 0;
  virtual void route(const Page& page) = 0;
  /// Loads the campaign anew, in the way that the screen was opened.
  virtual void reload() = 0;
};

/// A page put together by the service: its blocks in a stack that scrolls, on white. It never changes;
/// another page is another view.
class ORRELO_EXPORT ModularCampaignView final : public View,
                                                public UIComponentDelegate,
                                                public DialogComponentDelegate {
 public:
  static constexpr Color backgroundColor{1.0, 1.0, 1.0, 1.0};

  /// With the views of all blocks in place.
  static std::shared_ptr<ModularCampaignView> create(ModularCampaign campaign);

  static constexpr std::string_view kindName = "ModularCampaignView";
  std::string_view kind() const override { return kindName; }

  /// The dialogs of the page, in their order. Once for each build of the page.
  void showDialogs(ORLUIViewController& viewController);

  /// From a block or a dialog, also from one that was dismissed.
  void didReceive(const Action& action) override;

  const std::shared_ptr<StackView> stackView = std::make_shared<StackView>();
  std::weak_ptr<ModularCampaignViewDelegate> delegate;

 private:
  explicit ModularCampaignView(ModularCampaign campaign);

  /// Held for the views, which know their blocks weakly.
  const ModularCampaign modularCampaign_;
};

}  // namespace orrelo
