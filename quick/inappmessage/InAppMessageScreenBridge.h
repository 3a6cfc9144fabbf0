#pragma once

#include "inappmessage/InAppMessageViewController.h"
#include "quick/bridge/ScreenBridge.h"

#include <QAccessible>
#include <QColor>
#include <QRectF>
#include <QVariant>

namespace orrelo::quick {

class InAppMessageScreenBridge final : public orrelo::quick::ScreenBridge,
                                       private QAccessible::ActivationObserver {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("")
  /// An InAppMessageCellBridge for each message.
  Q_PROPERTY(QVariantList cells MEMBER cells CONSTANT)
  Q_PROPERTY(QString confirmText MEMBER confirmText CONSTANT)
  Q_PROPERTY(QString skipTodayText MEMBER skipTodayText CONSTANT)
  Q_PROPERTY(QString accessibilityLabel MEMBER accessibilityLabel CONSTANT)
  Q_PROPERTY(QString closeLabel MEMBER closeLabel CONSTANT)
  Q_PROPERTY(QUrl closeAsset MEMBER closeAsset CONSTANT)
  Q_PROPERTY(QColor currentPageColor MEMBER currentPageColor CONSTANT)
  Q_PROPERTY(double dotSize MEMBER dotSize CONSTANT)
  Q_PROPERTY(double dotSpacing MEMBER dotSpacing CONSTANT)
  Q_PROPERTY(int currentPage READ currentPage NOTIFY stateChanged)
  Q_PROPERTY(bool showsPageControl READ showsPageControl NOTIFY stateChanged)
  /// The square in which the pages show their pictures.
  Q_PROPERTY(QRectF container READ container NOTIFY stateChanged)

 public:
  InAppMessageScreenBridge(const std::shared_ptr<InAppMessageViewController>& screen, QObject* parent);
  ~InAppMessageScreenBridge() override;

  const QVariantList cells;
  const QString confirmText = toQt(InAppMessageViewController::confirmText);
  const QString skipTodayText = toQt(InAppMessageViewController::skipTodayText);
  const QString accessibilityLabel = toQt(InAppMessageViewController::accessibilityLabel);
  const QString closeLabel = toQt(InAppMessageViewController::closeLabel);
  const QUrl closeAsset = assetFile(InAppMessageViewController::closeAsset);
  const QColor currentPageColor;
  const double dotSize = InAppMessageViewController::dotSize;
  const double dotSpacing = InAppMessageViewController::dotSpacing;

  int currentPage() const { return static_cast<int>(messages_.state.value().currentPage); }
  bool showsPageControl() const { return messages_.state.value().showsPageControl; }
  QRectF container() const {
    const auto& frame = messages_.state.value().container;
    return {frame.x, frame.y, frame.width, frame.height};
  }

  Q_INVOKABLE bool showsDots(double width) const {
    return InAppMessageViewController::showsDots(messages_.cells.size(), width);
  }
  Q_INVOKABLE void layOut(double width, double height, double roomAbove, double roomBelow) {
    messages_.layOut({width, height}, roomAbove, roomBelow);
  }
  Q_INVOKABLE void didScroll(double offset, double pageWidth) { messages_.didScroll(offset, pageWidth); }
  Q_INVOKABLE void didEndScrolling() { messages_.didEndScrolling(); }
  Q_INVOKABLE void setPressed(bool isPressed) { messages_.setPressed(isPressed); }
  /// Called when a page of the carousel receives or loses the focus.
  Q_INVOKABLE void setFocused(bool hasFocus);
  Q_INVOKABLE void turn(int count) { messages_.turn(count); }
  Q_INVOKABLE void turnWheel(double dx, double dy, bool isMomentum) {
    messages_.turnWheel(dx, dy, isMomentum);
  }
  Q_INVOKABLE void didSelect(int item) {
    const auto keep = screen();  // leaving may delete this bridge, which owns the screen
    messages_.didSelect(static_cast<std::size_t>(item));
  }
  Q_INVOKABLE void skipToday() {
    const auto keep = screen();
    messages_.skipToday();
  }

 Q_SIGNALS:
  /// The carousel has to move to a page.
  void scrollsTo(int item, bool animated);

 private:
  void accessibilityActiveChanged(bool isActive) override;
  void requestScroll();

  InAppMessageViewController& messages_;
  unsigned scrollNumber_ = 0;
  bool hasFocus_ = false;
  bool hasReader_ = QAccessible::isActive();
  Subscriptions scrolls_;
};

}  // namespace orrelo::quick
