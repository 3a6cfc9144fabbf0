#pragma once

#include <QQuickItem>
#include <QSet>
#include <QtQml/qqmlregistration.h>
#include <optional>

class QWheelEvent;

namespace orrelo::quick {

/// The frame around the engine's view. The view alone would consume every key and wheel event and lose every
/// touch drag to the screen. The frame routes keys that leave the page, and wheel events and drags that the
/// page cannot use, past the view.
class WebFrame : public QQuickItem {
  Q_OBJECT
  QML_ELEMENT
  /// The distances in points by which the page can still be scrolled up and down.
  Q_PROPERTY(double roomAbove MEMBER roomAbove_ NOTIFY roomChanged)
  Q_PROPERTY(double roomBelow MEMBER roomBelow_ NOTIFY roomChanged)

 public:
  explicit WebFrame(QQuickItem* parent = nullptr);

  bool eventFilter(QObject* watched, QEvent* event) override;
  /// Called when the page has answered, which shows that it is responsive.
  Q_INVOKABLE void didAnswer() { awaitsAnswer_ = false; }

 Q_SIGNALS:
  void roomChanged();
  /// Requests a call of `didAnswer` as soon as the page responds.
  void asked();

 protected:
  void itemChange(ItemChange change, const ItemChangeData& data) override;
  /// Runs before the filter of the screen's Flickable, which takes every drag whose grab is not kept.
  bool childMouseEventFilter(QQuickItem* item, QEvent* event) override;
  /// Passes keys that the page did not accept to the frame's parents. The engine sends them directly and not
  /// through the window.
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void watchAll();
  bool bypassesPage(QEvent* event);
  bool bypassesPage(const QWheelEvent& wheel);
  /// Handles Tab and F6; returns whether the key is consumed.
  bool takesKey(const QKeyEvent& key);
  bool canScroll(double distance) const { return (distance > 0 ? roomAbove_ : roomBelow_) >= 1.0; }
  void moveFocusOut(bool isForward);

  double roomAbove_ = 0.0;
  double roomBelow_ = 0.0;
  /// The engine's own items, which come and go with its processes.
  QSet<QQuickItem*> watched_;
  bool awaitsAnswer_ = false;
  bool decidesDrag_ = false;
  /// The first of the wheel events in one direction by which the page has not scrolled.
  struct Turn {
    bool isUp;
    quint64 time;
  };
  std::optional<Turn> unusedTurn_;
  bool hasPassedWheel_ = false;
};

}  // namespace orrelo::quick
