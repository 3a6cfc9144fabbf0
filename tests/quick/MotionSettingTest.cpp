#include "quick/platform/MotionSetting.h"

#include <QDBusMessage>
#include <QProcess>
#include <QTest>
#include <gmock/gmock.h>
#include <memory>
#include <vector>

namespace orrelo::test {
namespace {

using testing::ElementsAre;

const QString path = QStringLiteral("/org/freedesktop/portal/desktop");
const QString settings = QStringLiteral("org.freedesktop.portal.Settings");
const QString appearance = QStringLiteral("org.freedesktop.appearance");
const QString desktop = QStringLiteral("org.gnome.desktop.interface");

/// The desktop portal on a private bus, with one setting.
class Portal final : public QObject {
  Q_OBJECT
  Q_CLASSINFO("D-Bus Interface", "org.freedesktop.portal.Settings")

 public:
  struct Setting {
    QString space;
    QString key;
    QVariant value;
  };
  Setting setting;
  QDBusConnection bus{""};

 public Q_SLOTS:
  Q_SCRIPTABLE QDBusVariant Read(const QString& wantedSpace, const QString& wantedKey,
                                 const QDBusMessage& call) {
    if (wantedSpace == setting.space && wantedKey == setting.key) {
      return QDBusVariant(QVariant::fromValue(QDBusVariant(setting.value)));
    }
    call.setDelayedReply(true);
    bus.send(call.createErrorReply("org.freedesktop.portal.Error.NotFound", "Requested setting not found"));
    return {};
  }
};

class MotionSettingTest : public testing::Test {
 protected:
  MotionSettingTest() {
    daemon_.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    daemon_.start("dbus-daemon", {"--session", "--nofork", "--print-address"});
    daemon_.waitForReadyRead();
    address_ = QString::fromUtf8(daemon_.readLine()).trimmed();
    desktop_ = QDBusConnection::connectToBus(address_, "desktop");
  }
  ~MotionSettingTest() override {
    for (const auto* const name : {"desktop", "kit"}) QDBusConnection::disconnectFromBus(name);
    daemon_.kill();
    daemon_.waitForFinished();
  }

  void openDesktop() {
    ASSERT_TRUE(desktop_.isConnected());
    portal_.bus = desktop_;
    ASSERT_TRUE(desktop_.registerObject(path, &portal_, QDBusConnection::ExportScriptableSlots));
    ASSERT_TRUE(desktop_.registerService("org.freedesktop.portal.Desktop"));
  }
  void follow() {
    setting_ = std::make_unique<quick::MotionSetting>(QDBusConnection::connectToBus(address_, "kit"),
                                                      [this](bool prefers) { said_.push_back(prefers); });
  }
  /// The values reported so far; waits for `count` of them.
  std::vector<bool> said(std::size_t count) {
    static_cast<void>(QTest::qWaitFor([&] { return said_.size() >= count; }));
    return said_;
  }
  void change(const QString& space, const QString& key, const QVariant& value) {
    auto signal = QDBusMessage::createSignal(path, settings, "SettingChanged");
    signal << space << key << QVariant::fromValue(QDBusVariant(value));
    ASSERT_TRUE(desktop_.send(signal));
  }

  QProcess daemon_;
  QString address_;
  QDBusConnection desktop_{""};
  Portal portal_;
  std::unique_ptr<quick::MotionSetting> setting_;
  std::vector<bool> said_;
};

TEST_F(MotionSettingTest, TheDesktopsSettingIsReadAtTheStartAndFollowed) {
  portal_.setting = {appearance, "reduced-motion", 1U};
  openDesktop();
  follow();
  EXPECT_THAT(said(1), ElementsAre(true));
  change(desktop, "text-scaling-factor", 1.5);
  change(appearance, "reduced-motion", 0U);
  EXPECT_THAT(said(2), ElementsAre(true, false));
}

TEST_F(MotionSettingTest, AnOlderDesktopSaysThatItDoesNotAnimate) {
  portal_.setting = {desktop, "enable-animations", false};
  openDesktop();
  follow();
  EXPECT_THAT(said(1), ElementsAre(true));
  change(desktop, "enable-animations", true);
  EXPECT_THAT(said(2), ElementsAre(true, false));
}

TEST_F(MotionSettingTest, ADesktopThatComesLateIsHeard) {
  follow();
  openDesktop();
  change(desktop, "enable-animations", false);
  EXPECT_THAT(said(1), ElementsAre(true));
}

}  // namespace
}  // namespace orrelo::test

#include "MotionSettingTest.moc"
