#include "quick/inappmessage/InAppMessageScreenBridge.h"

#include "quick/inappmessage/InAppMessageCellBridge.h"

#include <utility>

namespace orrelo::quick {

InAppMessageScreenBridge::InAppMessageScreenBridge(const std::shared_ptr<InAppMessageViewController>& screen,
                                                   QObject* parent)
    : ScreenBridge(screen, parent),
      cells(bridgesOf<InAppMessageCellBridge>(screen->cells, this)),
      currentPageColor(toQt(screen->brandTheme.primary)),
      messages_(*screen),
      scrollNumber_(screen->scroll.value().number) {
  follow(messages_.state.changes());
  scrolls_.follow(messages_.scroll.changes(), [this] { requestScroll(); });
  QAccessible::installActivationObserver(this);
}

InAppMessageScreenBridge::~InAppMessageScreenBridge() {
  QAccessible::removeActivationObserver(this);
  messages_.setPressed(false);
  messages_.setReaderFocus(false);
}

void InAppMessageScreenBridge::setFocused(bool hasFocus) {
  hasFocus_ = hasFocus;
  messages_.setReaderFocus(hasFocus_ && hasReader_);
}

void InAppMessageScreenBridge::accessibilityActiveChanged(bool isActive) {
  hasReader_ = isActive;
  messages_.setReaderFocus(hasFocus_ && hasReader_);
}

void InAppMessageScreenBridge::requestScroll() {
  const auto request = messages_.scroll.value();
  if (std::exchange(scrollNumber_, request.number) == request.number) return;
  Q_EMIT scrollsTo(static_cast<int>(request.item), request.animated);
}

}  // namespace orrelo::quick

#include "moc_InAppMessageScreenBridge.cpp"
