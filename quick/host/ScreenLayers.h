#pragma once

#include "quick/bridge/ScreenBridge.h"

#include <QAbstractListModel>
#include <memory>
#include <vector>

namespace orrelo::quick {

/// Screens that lie over each other, the lowest first. One that was taken away stays until it has left the
/// screen before the user's eyes.
class ScreenLayers : public QAbstractListModel {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("")
  /// The uppermost that is to stay; null where there is none.
  Q_PROPERTY(orrelo::quick::ScreenBridge* top READ top NOTIFY topChanged)

 public:
  using QAbstractListModel::QAbstractListModel;

  /// Becomes these. Screens are known by their identity.
  void set(const std::vector<std::shared_ptr<ViewController>>& screens, bool animated);
  ScreenBridge* top() const;

  /// The front reports: the screen has come to rest, or has left.
  Q_INVOKABLE void arrived(orrelo::quick::ScreenBridge* screen);
  Q_INVOKABLE void gone(orrelo::quick::ScreenBridge* screen);

  int rowCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QHash<int, QByteArray> roleNames() const override;

 Q_SIGNALS:
  void topChanged();
  /// One of the screens presents something else than before.
  void presentationChanged(bool animated);

 private:
  enum Role { screen = Qt::UserRole, isAnimated, isLeaving, isTop, isCovered };
  struct Layer {
    ScreenBridge* bridge;
    bool isAnimated;
    bool hasArrived;
    bool isLeaving = false;
  };

  void append(const std::shared_ptr<ViewController>& screen, bool animated);
  void remove(std::size_t row);
  /// Something above hides it altogether.
  bool isCoveredAt(std::size_t row) const;
  std::ptrdiff_t find(const ScreenBridge* bridge) const;
  void refresh();

  std::vector<Layer> layers_;
};

}  // namespace orrelo::quick
