#pragma once

#include "DevService.h"
#include "FrameDisplay.h"
#include "NotificationInbox.h"
#include "Notifications.h"

#include <orrelo/ORLDelegates.h>

#include <QObject>
#include <QQuickWindow>
#include <QString>
#include <chrono>
#include <filesystem>
#include <memory>
#include <optional>

namespace orrelo::showroom {

/// The functions of the showroom's QML page: a shop's application with the kit and a campaign service of its
/// own.
class Showroom final : public QObject {
  Q_OBJECT
  Q_PROPERTY(QString user READ user NOTIFY userChanged)
  Q_PROPERTY(QString serviceUrl READ serviceUrl CONSTANT)
  Q_PROPERTY(int eventCount READ eventCount NOTIFY eventCountChanged)
  /// The shop's own web page; empty if the showroom is built without a browser engine.
  Q_PROPERTY(QString newsUrl READ newsUrl CONSTANT)
  /// True once the user has pressed the marketing campaign's button: the showroom grants consent at once.
  Q_PROPERTY(bool hasConsent READ hasConsent NOTIFY hasConsentChanged)

 public:
  /// Starts the kit and the service, which keep their data in `folder`. `now` fixes the time of both and
  /// hides the service's address, so that the page looks the same in every run.
  explicit Showroom(const std::filesystem::path& folder,
                    std::optional<std::chrono::system_clock::time_point> now = {});

  devservice::DevService& service() { return service_; }
  Notifications& notifications() { return notifications_; }
  void setWindow(QQuickWindow* window) { window_ = window; }
  /// Lets the kit ask for its configuration again, if the time is fixed: moves the kit's clock on by more
  /// than the lifetime of the copy in its memory.
  void letConfigurationExpire();
  /// Moves the kit's clock on by a day, if the time is fixed.
  void letTheNextDayBegin();

  /// Advances animated images by a tick of the display, if the time is fixed.
  void tickDisplay();

  /// Empty if nobody is signed in.
  QString user() const { return user_; }
  /// Empty if the page must not show it.
  QString serviceUrl() const { return serviceUrl_; }
  QString newsUrl() const;
  int eventCount() const { return eventCount_; }
  bool hasConsent() const { return hasConsent_; }

  Q_INVOKABLE void signIn(const QString& user);
  Q_INVOKABLE void signOut();
  Q_INVOKABLE void buy();
  /// Pushes the campaign onto the window's stack.
  Q_INVOKABLE void openCampaign(const QString& id);
  /// Opens the page with this id over the current screen.
  Q_INVOKABLE void openPage(const QString& id);
  /// Presents the attendance campaign over the window.
  Q_INVOKABLE void presentAttendance();
  /// Pushes the kit's home onto the window's stack.
  Q_INVOKABLE void openHome();
  /// Shows the service's messages over the window.
  Q_INVOKABLE void showMessages();
  /// Takes over the user whom the shop's web page has signed in to the kit.
  Q_INVOKABLE void didSignIn(const QString& user);

 Q_SIGNALS:
  void userChanged();
  void eventCountChanged();
  void hasConsentChanged();

 private:
  class Consent;
  class StoppedClock;

  void setUser(const QString& user);
  void giveConsent();
  void followNotifications();

  devservice::DevService service_;
  Notifications notifications_;
  /// Null if the time is fixed: such a showroom plays its notifications itself.
  std::unique_ptr<NotificationInbox> inbox_;
  /// Both are null if the time is not fixed.
  std::shared_ptr<StoppedClock> clock_;
  std::shared_ptr<FrameDisplay> display_;
  QString serviceUrl_;
  QQuickWindow* window_ = nullptr;
  QString user_;
  int eventCount_ = 0;
  bool hasConsent_ = false;
  std::shared_ptr<ORLOptInMarketingCampaignDelegate> consent_;
};

}  // namespace orrelo::showroom
