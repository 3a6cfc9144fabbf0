#include "quick/platform/MotionSetting.h"

#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <utility>

namespace orrelo::quick {
namespace {

// The settings interface of the desktop portal and the two settings in question, as in its documentation.
const QString service = QStringLiteral("org.freedesktop.portal.Desktop");
const QString path = QStringLiteral("/org/freedesktop/portal/desktop");
const QString settings = QStringLiteral("org.freedesktop.portal.Settings");
const QString appearance = QStringLiteral("org.freedesktop.appearance");
const QString reducedMotion = QStringLiteral("reduced-motion");  // 1: reduced motion is preferred
const QString desktop = QStringLiteral("org.gnome.desktop.interface");
const QString enableAnimations = QStringLiteral("enable-animations");

// `Read` wraps a value in one variant more than necessary.
QVariant unpacked(QVariant value) {
  while (value.canConvert<QDBusVariant>()) value = value.value<QDBusVariant>().variant();
  return value;
}

}  // namespace

MotionSetting::MotionSetting(QDBusConnection bus, Changed changed, QObject* parent)
    : QObject(parent), bus_(std::move(bus)), changed_(std::move(changed)) {
  qRegisterMetaType<QDBusVariant>();  // otherwise the first `connect` of a process fails
  bus_.connect(service, path, settings, QStringLiteral("SettingChanged"), this,
               SLOT(settingChanged(QString, QString, QDBusVariant)));
  read(appearance, reducedMotion);
  read(desktop, enableAnimations);
}

void MotionSetting::read(const QString& space, const QString& key) {
  auto call = QDBusMessage::createMethodCall(service, path, settings, QStringLiteral("Read"));
  call << space << key;
  auto* const watcher = new QDBusPendingCallWatcher(bus_.asyncCall(call), this);
  connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, space, key, watcher] {
    const QDBusPendingReply<QDBusVariant> reply = *watcher;
    if (!reply.isError()) settingChanged(space, key, reply.value());
    watcher->deleteLater();
  });
}

void MotionSetting::settingChanged(const QString& space, const QString& key, const QDBusVariant& value) {
  if (space == appearance && key == reducedMotion) {
    isReduced_ = unpacked(value.variant()).toUInt() == 1;
  } else if (space == desktop && key == enableAnimations) {
    isUnanimated_ = !unpacked(value.variant()).toBool();
  } else {
    return;
  }
  changed_(isReduced_ || isUnanimated_);
}

}  // namespace orrelo::quick
