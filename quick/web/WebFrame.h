#pragma once

#include <QQuickItem>
#include <QSet>
#include <QtQml/qqmlregistration.h>
#include <optional>

class QWheelEvent;

namespace orrelo::quick {

/// The frame around an engine's view, which would keep every key and wheel for its page, and lose every touch
/// to the screen: leaving the page passes it by, and so does what the page has no use for.
class WebFrame : public QQuickItem {
  Q_OBJECT
  QML_ELEMENT
  /// How far the page can be scrolled up and down from where it is.
  Q_PROPERTY(double roomAbove MEMBER roomAbove_ NOTIFY roomChanged)
  Q_PROPERTY(double roomBelow MEMBER roomBelow_ NOTIFY roomChanged)

 public:
  explicit WebFrame(QQuickItem* parent = nullptr);

  bool eventFilter(QObject* watched, QEvent* event) override;
  /// The page has answered, so it is not stuck.
  Q_INVOKABLE void didAnswer() { isAsked_ = false; }

 Q_SIGNALS:
  void roomChanged();
  /// The page is to be asked for any answer.
  void asked();

 protected:
  void itemChange(ItemChange change, const ItemChangeData& data) override;
  /// Before the screen's own filter, which takes whatever drag an item does not hold on to.
  bool childMouseEventFilter(QQuickItem* item, QEvent* event) override;
  /// Keys that the page has left over come from the engine, behind the window's back.
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void watchAll();
  bool passesBy(QEvent* event);
  bool takesKey(const QKeyEvent& key);
  bool isOfNoUse(const QWheelEvent& wheel);
  bool hasRoom(double distance) const { return (distance > 0 ? roomAbove_ : roomBelow_) >= 1.0; }
  void moveOn(bool isForward);

  double roomAbove_ = 0.0;
  double roomBelow_ = 0.0;
  /// The engine's own items, which come and go with its processes.
  QSet<QQuickItem*> watched_;
  bool isAsked_ = false;
  bool decidesDrag_ = false;
  /// A wheel that the page has got and not moved by.
  struct Turn {
    bool isUp;
    quint64 time;
  };
  std::optional<Turn> unusedTurn_;
  bool hasPassedWheel_ = false;
};

}  // namespace orrelo::quick
