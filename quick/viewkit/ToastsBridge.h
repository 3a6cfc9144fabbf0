#pragma once

#include "quick/bridge/AnimationValue.h"
#include "quick/bridge/ViewBridge.h"
#include "viewkit/ToastLayer.h"

#include <QAbstractListModel>
#include <QColor>
#include <memory>
#include <vector>

namespace orrelo::quick {

class ToastBridge final : public ViewBridge {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("")
  Q_PROPERTY(QString message READ message CONSTANT)
  Q_PROPERTY(QColor color READ color CONSTANT)
  Q_PROPERTY(double cornerRadius READ cornerRadius CONSTANT)
  Q_PROPERTY(double inset READ inset CONSTANT)
  Q_PROPERTY(double maximumWidthShare READ maximumWidthShare CONSTANT)
  Q_PROPERTY(orrelo::quick::AnimationValue fade READ fade CONSTANT)

 public:
  ToastBridge(const std::shared_ptr<ToastView>& view, QObject* parent)
      : ViewBridge(view, parent), toast_(*view) {}

  const ToastView& toast() const { return toast_; }
  QString message() const { return toQt(toast_.message); }
  QColor color() const { return toQt(toast_.backgroundColor); }
  double cornerRadius() const { return ToastView::cornerRadius; }
  double inset() const { return ToastView::inset; }
  double maximumWidthShare() const { return ToastView::maximumWidthShare; }
  AnimationValue fade() const { return AnimationValue(ToastView::fade); }

 private:
  const ToastView& toast_;
};

/// The toasts of a screen, by their identity: one that stays keeps its row, and so its fading.
class ToastsBridge final : public QAbstractListModel {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("")

 public:
  ToastsBridge(std::shared_ptr<ToastLayer> layer, QObject* parent);

  /// Has assistive technology say what the toast says.
  Q_INVOKABLE void announce(QObject* item) const;
  /// The fade has been played.
  Q_INVOKABLE void fadeDidFinish(orrelo::quick::ToastBridge* toast);

  int rowCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QHash<int, QByteArray> roleNames() const override;

 private:
  void update(const std::vector<std::shared_ptr<ToastView>>& toasts);

  const std::shared_ptr<ToastLayer> layer_;
  std::vector<ToastBridge*> rows_;
  Subscriptions subscriptions_;
};

}  // namespace orrelo::quick
