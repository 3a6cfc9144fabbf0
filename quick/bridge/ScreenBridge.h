#pragma once

#include "quick/bridge/Conversions.h"
#include "quick/bridge/Subscriptions.h"
#include "ui/ViewController.h"

#include <QObject>
#include <QString>
#include <QUrl>
#include <QtQml/qqmlregistration.h>
#include <memory>

namespace orrelo::quick {

/// A core screen as QML sees it.
class ScreenBridge : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("")
  /// The file that draws it; empty for a kind that the kit has no look for.
  Q_PROPERTY(QUrl delegate READ delegate CONSTANT)
  Q_PROPERTY(QString title READ title NOTIFY titleChanged)
  /// What lies beneath shows through.
  Q_PROPERTY(bool isOver READ isOver CONSTANT)
  /// There is something that `close` leads back to, which does not change while a screen has its place.
  Q_PROPERTY(bool canClose READ canClose CONSTANT)

 public:
  ScreenBridge(std::shared_ptr<ViewController> screen, QObject* parent);

  const std::shared_ptr<ViewController>& screen() const { return screen_; }
  QUrl delegate() const;
  QString title() const { return toQt(screen_->title().value_or("")); }
  bool isOver() const { return screen_->modalPresentationStyle == ModalPresentationStyle::overFullScreen; }

  bool canClose() const { return screen_->canClose(); }
  /// Escape, Back and whatever else leaves the screen.
  Q_INVOKABLE virtual void close();

 Q_SIGNALS:
  void titleChanged();
  void stateChanged();
  /// It presents something else now, or nothing any more.
  void presentationChanged(bool animated);

 protected:
  /// Emits `stateChanged` at once and at each signal.
  void follow(const reactive::Observable<reactive::Unit>& changes) {
    subscriptions_.follow(changes, [this] { Q_EMIT stateChanged(); });
  }

 private:
  std::shared_ptr<ViewController> screen_;
  Subscriptions subscriptions_;
};

}  // namespace orrelo::quick
