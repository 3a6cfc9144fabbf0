#include "inappmessage/InAppMessageViewCell.h"

#include <utility>

namespace orrelo {
namespace {

std::string label(std::size_t position, std::size_t count) {
  const std::string name = "이벤트 배너";
  if (count == 1) return name;
  return name + ", " + std::to_string(count) + "개 중 " + std::to_string(position + 1) + "번째";
}

}  // namespace

InAppMessageViewCell::InAppMessageViewCell(const InAppMessage& message, std::size_t position,
                                           std::size_t count)
    : imageUrl(message.imageUrl), accessibilityLabel(label(position, count)) {
  accessibilityIdentifier = message.campaignId;
}

void InAppMessageViewCell::setNear(bool isNear) {
  if (std::exchange(isNear_, isNear) == isNear) return;
  if (isNear) {
    imageView->load(imageUrl);
  } else {
    imageView->setAsset("");
  }
}

}  // namespace orrelo
