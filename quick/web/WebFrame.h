#pragma once

#include <QQuickItem>
#include <QtQml/qqmlregistration.h>

namespace orrelo::quick {

/// The frame around an engine's view, which would keep every key and wheel for its page: leaving the screen
/// passes it by, and so does a wheel that the page has no use for.
class WebFrame : public QQuickItem {
  Q_OBJECT
  QML_ELEMENT
  /// How far the page can be scrolled up and down from where it is.
  Q_PROPERTY(double roomAbove MEMBER roomAbove_ NOTIFY roomChanged)
  Q_PROPERTY(double roomBelow MEMBER roomBelow_ NOTIFY roomChanged)

 public:
  using QQuickItem::QQuickItem;

  bool eventFilter(QObject* watched, QEvent* event) override;

 Q_SIGNALS:
  void roomChanged();

 protected:
  void itemChange(ItemChange change, const ItemChangeData& data) override;
  /// Keys that the page has left over come from the engine, behind the window's back.
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void watch(QQuickItem* item);
  bool passesBy(QEvent* event) const;

  double roomAbove_ = 0.0;
  double roomBelow_ = 0.0;
};

}  // namespace orrelo::quick
