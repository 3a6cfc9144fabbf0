#pragma once

#include <QDBusConnection>
#include <QDBusVariant>
#include <QObject>
#include <functional>

namespace orrelo::quick {

/// Reports the desktop's reduced-motion setting, which Qt does not expose. Reads it from the desktop portal
/// and calls `changed` with the initial value and after each change; never without a portal.
class MotionSetting final : public QObject {
  Q_OBJECT

 public:
  using Changed = std::function<void(bool prefersReducedMotion)>;

  MotionSetting(QDBusConnection bus, Changed changed, QObject* parent = nullptr);

 private:
  Q_SLOT void settingChanged(const QString& space, const QString& key, const QDBusVariant& value);

  void read(const QString& space, const QString& key);

  QDBusConnection bus_;
  Changed changed_;
  bool isReduced_ = false;
  bool isUnanimated_ = false;
};

}  // namespace orrelo::quick
