#pragma once

#include "quick/bridge/Conversions.h"
#include "quick/bridge/Subscriptions.h"
#include "quick/bridge/TextMeasure.h"
#include "ui/View.h"

#include <QObject>
#include <QString>
#include <QVariant>
#include <QtQml/qqmlregistration.h>
#include <memory>

namespace orrelo::quick {

/// Exposes a core view to QML as typed properties that follow its state. The core decides, QML draws. Derived
/// bridges spell the namespaces of their base class, without which the tools of Qt 6.4 do not find it and
/// qmllint reports its properties as unknown.
class ViewBridge : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("")
  /// The QML file that draws the view; empty for a kind that is only drawn as a part of other views.
  Q_PROPERTY(QUrl delegate READ delegate CONSTANT)
  Q_PROPERTY(QString accessibilityIdentifier READ accessibilityIdentifier CONSTANT)

 public:
  ViewBridge(std::shared_ptr<View> view, QObject* parent) : QObject(parent), view_(std::move(view)) {}

  QUrl delegate() const;
  const std::shared_ptr<View>& view() const { return view_; }
  QString accessibilityIdentifier() const { return toQt(view_->accessibilityIdentifier); }

  /// Passes the size of the item that draws the view to the core.
  Q_INVOKABLE void reportSize(double width, double height) { view_->setSize({width, height}); }
  /// The height of the item that will draw the view, before it exists; -1 if only the item itself knows it.
  /// `text` is a KitText for a TextMeasure.
  Q_INVOKABLE double heightFor(double width, QQuickItem* text) const {
    return text != nullptr ? measuredHeight(width, TextMeasure(*text)) : unknownHeight;
  }

 Q_SIGNALS:
  void stateChanged();

 protected:
  static constexpr double unknownHeight = -1.0;

  /// Kinds whose items take long to create tell their height, so that a page creates them after its first
  /// frame. It must be the height of the item to the pixel, which LateBlocksTest checks.
  virtual double measuredHeight(double /*width*/, const TextMeasure& /*measure*/) const {
    return unknownHeight;
  }

  /// Emits `stateChanged` immediately and at each change of `followed`.
  template <class State>
  void follow(const Followed<State>& followed) {
    subscriptions_.follow(followed.changes(), [this] { Q_EMIT stateChanged(); });
  }

 private:
  std::shared_ptr<View> view_;
  Subscriptions subscriptions_;
};

/// A bridge for each view, as the model of a Repeater; for views that never change.
template <class Bridge, class Views>
QVariantList bridgesOf(const Views& views, QObject* parent) {
  QVariantList bridges;
  for (const auto& view : views) bridges.push_back(QVariant::fromValue(new Bridge(view, parent)));
  return bridges;
}

}  // namespace orrelo::quick
