#pragma once

#include "quick/bridge/Conversions.h"
#include "quick/bridge/Subscriptions.h"
#include "ui/View.h"

#include <QObject>
#include <QString>
#include <QtQml/qqmlregistration.h>
#include <memory>

namespace orrelo::quick {

/// A core view as QML sees it: typed properties that follow its state. The core decides, QML draws.
class ViewBridge : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("")
  /// The file that draws it; empty for a kind that only parts of others draw.
  Q_PROPERTY(QUrl delegate READ delegate CONSTANT)
  Q_PROPERTY(QString accessibilityIdentifier READ accessibilityIdentifier CONSTANT)

 public:
  ViewBridge(std::shared_ptr<View> view, QObject* parent) : QObject(parent), view_(std::move(view)) {}

  QUrl delegate() const;
  const std::shared_ptr<View>& view() const { return view_; }
  QString accessibilityIdentifier() const { return toQt(view_->accessibilityIdentifier); }

  /// The size that the view has got on the screen.
  Q_INVOKABLE void reportSize(double width, double height) { view_->setSize({width, height}); }

 Q_SIGNALS:
  void stateChanged();

 protected:
  /// Emits `stateChanged` at once and at each change of `followed`.
  template <class State>
  void follow(const Followed<State>& followed) {
    subscriptions_.follow(followed.changes(), [this] { Q_EMIT stateChanged(); });
  }

 private:
  std::shared_ptr<View> view_;
  Subscriptions subscriptions_;
};

}  // namespace orrelo::quick
