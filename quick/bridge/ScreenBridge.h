#pragma once

#include "quick/bridge/AnimationValue.h"
#include "quick/bridge/Conversions.h"
#include "quick/bridge/Subscriptions.h"
#include "ui/ViewController.h"

#include <QObject>
#include <QString>
#include <QUrl>
#include <QtQml/qqmlregistration.h>
#include <memory>

namespace orrelo::quick {

/// Exposes a core screen to QML.
class ScreenBridge : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("")
  /// The QML file that draws the screen; empty if its kind is not registered.
  Q_PROPERTY(QUrl delegate READ delegate CONSTANT)
  Q_PROPERTY(QString title READ title NOTIFY titleChanged)
  /// True if the content below the screen remains visible.
  Q_PROPERTY(bool isOver READ isOver CONSTANT)
  /// True if the screen fades in and out instead of sliding.
  Q_PROPERTY(bool fades READ fades CONSTANT)
  /// True if the screen leaves by moving to the right, with `reveal`, whatever else it does when it arrives.
  Q_PROPERTY(bool leavesByReveal READ leavesByReveal NOTIFY presentationChanged)
  /// From 1, where the screen is in its place, to 0.
  Q_PROPERTY(orrelo::quick::AnimationValue reveal READ reveal NOTIFY presentationChanged)
  /// True if there is a screen to return to. The value does not change while the screen is shown.
  Q_PROPERTY(bool canClose READ canClose CONSTANT)

 public:
  ScreenBridge(std::shared_ptr<ViewController> screen, QObject* parent);

  const std::shared_ptr<ViewController>& screen() const { return screen_; }
  QUrl delegate() const;
  QString title() const { return toQt(screen_->title().value_or("")); }
  bool isOver() const { return screen_->modalPresentationStyle != ModalPresentationStyle::fullScreen; }

  bool fades() const {
    return isOver() || screen_->modalTransitionStyle == ModalTransitionStyle::crossDissolve;
  }
  bool leavesByReveal() const { return screen_->transition().has_value(); }
  AnimationValue reveal() const;
  bool canClose() const { return screen_->canClose(); }
  /// Leaves the screen; called for Escape, Back and the screen's own close buttons.
  Q_INVOKABLE virtual void close();

 Q_SIGNALS:
  void titleChanged();
  void stateChanged();
  /// The screen now presents another screen, or no longer presents one.
  void presentationChanged(bool animated);

 protected:
  /// Emits `stateChanged` immediately and at each element of `changes`.
  void follow(const reactive::Observable<reactive::Unit>& changes) {
    subscriptions_.follow(changes, [this] { Q_EMIT stateChanged(); });
  }

 private:
  std::shared_ptr<ViewController> screen_;
  Subscriptions subscriptions_;
};

}  // namespace orrelo::quick
