#pragma once

#include <QDBusConnection>
#include <QDBusVariant>
#include <QObject>
#include <functional>

namespace orrelo::quick {

/// Whether the desktop's user has asked for less movement, which Qt does not tell. Says so at first and after
/// each change, as the desktop portal does; nothing where there is no portal.
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
