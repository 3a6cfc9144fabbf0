#include "modular/dialog/RewardMessageDialogComponent.h"

namespace orrelo {

RewardMessageDialogComponent::RewardMessageDialogComponent(const JsonObject& json)
    : title(json.text("title")),
      body(json.text("body")),
      buttonText(json.text("button_text")),
      color(json.text("color")) {}

void RewardMessageDialogComponent::show(ORLUIViewController& viewController) {
  const CampaignRewardViewController::Content content{title, body, buttonText, Color::fromHex(color)};
  const auto card = std::make_shared<CampaignRewardViewController>(content);
  card->delegate = std::static_pointer_cast<RewardMessageDialogComponent>(shared_from_this());
  viewController.present(card, false);
}

void RewardMessageDialogComponent::didClose() {
  if (const auto listener = delegate.lock()) listener->didReceive({Action::UpdateNeeded{}});
}

}  // namespace orrelo
