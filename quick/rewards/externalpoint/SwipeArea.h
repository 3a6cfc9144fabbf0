#pragma once

#include <QQuickItem>
#include <QtQml/qqmlregistration.h>
#include <memory>

class QTouchEvent;

namespace orrelo {
class RightSwipe;
}

namespace orrelo::quick {

/// An area in which a finger can be swiped to the right, and the back button of a mouse pressed. The items in
/// it receive all of their input too.
class SwipeArea : public QQuickItem {
  Q_OBJECT
  QML_ELEMENT

 public:
  explicit SwipeArea(QQuickItem* parent = nullptr);
  ~SwipeArea() override;

 Q_SIGNALS:
  void swiped();

 protected:
  bool childMouseEventFilter(QQuickItem* item, QEvent* event) override;
  void touchEvent(QTouchEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;

 private:
  void follow(const QTouchEvent& event);

  const std::unique_ptr<RightSwipe> swipe_;
};

}  // namespace orrelo::quick
