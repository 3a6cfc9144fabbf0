#pragma once

#include "base/Color.h"
#include "ui/ViewController.h"

#include <orrelo/Export.h>

#include <memory>
#include <string>
#include <utility>

namespace orrelo {

class ORRELO_EXPORT CampaignRewardViewControllerDelegate {
 public:
  virtual ~CampaignRewardViewControllerDelegate() = default;

  virtual void didClose() = 0;
};

/// A full-screen overlay with a card that announces a reward.
class ORRELO_EXPORT CampaignRewardViewController final : public ViewController {
 public:
  struct Content {
    std::string title;
    std::string message;
    std::string buttonText;
    /// The colour of the heading and of the button.
    Color color;
  };
  static constexpr auto closeAsset = "orl_ic_close";

  explicit CampaignRewardViewController(Content reward) : content(std::move(reward)) {
    modalPresentationStyle = ModalPresentationStyle::overFullScreen;
  }

  static constexpr std::string_view kindName = "CampaignRewardViewController";
  std::string_view kind() const override { return kindName; }

  /// Called for the close icon and for the button.
  void close() override;

  const Content content;
  std::weak_ptr<CampaignRewardViewControllerDelegate> delegate;

 protected:
  void viewDidLoad() override;
};

}  // namespace orrelo
