#pragma once

#include "DevService.h"
#include "FrameDisplay.h"
#include "NotificationInbox.h"
#include "Notifications.h"

#include <QObject>
#include <QString>
#include <chrono>
#include <filesystem>
#include <memory>
#include <optional>

namespace orrelo::showroom {

/// A shop's application with the kit and a campaign service of its own. Its QML page calls the kit itself.
class Showroom final : public QObject {
  Q_OBJECT
  /// The user whom the page greets; empty if nobody is signed in.
  Q_PROPERTY(QString user READ user WRITE setUser NOTIFY userChanged)
  Q_PROPERTY(QString serviceUrl READ serviceUrl CONSTANT)
  /// The shop's own web page; empty if the showroom is built without a browser engine.
  Q_PROPERTY(QString newsUrl READ newsUrl CONSTANT)

 public:
  /// Starts the kit and the service, which keep their data in `folder`. `now` fixes the time of both and
  /// hides the service's address, so that the page looks the same in every run.
  explicit Showroom(const std::filesystem::path& folder,
                    std::optional<std::chrono::system_clock::time_point> now = {});

  devservice::DevService& service() { return service_; }
  Notifications& notifications() { return notifications_; }
  /// Lets the kit ask for its configuration again, if the time is fixed: moves the kit's clock on by more
  /// than the lifetime of the copy in its memory.
  void letConfigurationExpire();
  /// Moves the kit's clock on by a day, if the time is fixed.
  void letTheNextDayBegin();

  /// Advances animated images by a tick of the display, if the time is fixed.
  void tickDisplay();

  QString user() const { return user_; }
  void setUser(const QString& user);
  /// Empty if the page must not show it.
  QString serviceUrl() const { return serviceUrl_; }
  QString newsUrl() const;

 Q_SIGNALS:
  void userChanged();

 private:
  class StoppedClock;

  void followNotifications();

  devservice::DevService service_;
  Notifications notifications_;
  /// Null if the time is fixed: such a showroom plays its notifications itself.
  std::unique_ptr<NotificationInbox> inbox_;
  /// Both are null if the time is not fixed.
  std::shared_ptr<StoppedClock> clock_;
  std::shared_ptr<FrameDisplay> display_;
  QString serviceUrl_;
  QString user_;
};

}  // namespace orrelo::showroom
