#pragma once

#include <QJSEngine>
#include <QJSValue>
#include <QObject>
#include <QQmlEngine>
#include <QQuickWindow>
#include <QVariantMap>
#include <memory>

namespace orrelo {
class ViewController;
}

namespace orrelo::quick {

/// The façade for QML: `Orrelo`, a singleton of each engine. Each function calls the operation of the same
/// name. The screens of the kit are shown in the window `place`, or in that of the item `place`, and without
/// it in the active window of the application.
///
/// A wrong argument throws a TypeError, and so does an event's value that events cannot carry.
class OrreloBridge final : public QObject {
  Q_OBJECT
  QML_NAMED_ELEMENT(Orrelo)
  QML_SINGLETON

 public:
  enum class CampaignType { Attendance, Referral, OptInMarketing, ScratchLottery, Roulette };
  Q_ENUM(CampaignType)
  enum class MarketingStatus { Unknown, OptIn, OptOut };
  Q_ENUM(MarketingStatus)

  explicit OrreloBridge(QJSEngine& engine) : engine_(engine) {}
  static OrreloBridge* create(QQmlEngine*, QJSEngine* engine) { return new OrreloBridge(*engine); }

  Q_INVOKABLE void showHome(QObject* place = nullptr);
  Q_INVOKABLE void showCampaign(const QString& id, QObject* place = nullptr);
  /// `type` is a CampaignType.
  Q_INVOKABLE void showCampaignOfType(const QJSValue& type, QObject* place = nullptr);
  Q_INVOKABLE void showPage(const QString& id);
  Q_INVOKABLE void showInAppMessage(QObject* place = nullptr);

  /// Without an id, nobody is signed in. `marketingStatus` is a MarketingStatus. `properties` is an object,
  /// as `values` is in `sendEvent`.
  Q_INVOKABLE void setUser(const QJSValue& id, const QJSValue& marketingStatus = {},
                           const QJSValue& properties = {});
  /// `values` is an object whose members are texts, numbers, booleans, dates, URLs, arrays and objects.
  Q_INVOKABLE void sendEvent(const QString& name, const QJSValue& values = {});

 Q_SIGNALS:
  /// What ORLUserEventDelegate receives: the values are texts. Emitted only while the host has set no such
  /// delegate in C++; so is `moveButtonTapped`.
  void userEventDidOccur(const QString& name, const QVariantMap& values);
  /// What ORLOptInMarketingCampaignDelegate receives. `window` is the one in which the campaign is shown.
  void moveButtonTapped(QQuickWindow* window);

 protected:
  /// Makes the relay the delegate once something is connected to its signal.
  void connectNotify(const QMetaMethod& signal) override;

 private:
  class Relay;

  /// Runs `call` and throws its std::invalid_argument to QML.
  template <class Call>
  void run(const Call& call);

  QJSEngine& engine_;
  std::shared_ptr<Relay> relay_;
};

}  // namespace orrelo::quick
