#pragma once

#include "DevService.h"

#include <orrelo/ORLDelegates.h>

#include <QObject>
#include <QQuickWindow>
#include <QString>
#include <chrono>
#include <filesystem>
#include <memory>
#include <optional>

namespace orrelo::showroom {

/// What the showroom's page can do: a shop's application that has the kit, with a campaign service of its
/// own.
class Showroom final : public QObject {
  Q_OBJECT
  Q_PROPERTY(QString user READ user NOTIFY userChanged)
  Q_PROPERTY(QString serviceUrl READ serviceUrl CONSTANT)
  Q_PROPERTY(int eventCount READ eventCount NOTIFY eventCountChanged)
  /// The user has followed the marketing campaign, and agreed at once, as it goes in a showroom.
  Q_PROPERTY(bool hasConsent READ hasConsent NOTIFY hasConsentChanged)

 public:
  /// `folder` keeps what the kit and the service store. Starts both. With `now` both live at that moment, and
  /// the page does not tell the service's address, so that it looks the same in every run.
  explicit Showroom(const std::filesystem::path& folder,
                    std::optional<std::chrono::system_clock::time_point> now = {});

  devservice::DevService& service() { return service_; }
  void setWindow(QQuickWindow* window) { window_ = window; }

  /// Empty where nobody is signed in.
  QString user() const { return user_; }
  /// Empty where the page does not tell it.
  QString serviceUrl() const { return serviceUrl_; }
  int eventCount() const { return eventCount_; }
  bool hasConsent() const { return hasConsent_; }

  Q_INVOKABLE void signIn(const QString& user);
  Q_INVOKABLE void signOut();
  Q_INVOKABLE void buy();
  /// Pushed onto the window's stack.
  Q_INVOKABLE void openCampaign(const QString& id);
  /// By the id of a page, over whatever the user has before them.
  Q_INVOKABLE void openPage(const QString& id);
  /// Presented over the window.
  Q_INVOKABLE void presentAttendance();

 Q_SIGNALS:
  void userChanged();
  void eventCountChanged();
  void hasConsentChanged();

 private:
  class Consent;

  void setUser(const QString& user);
  void giveConsent();

  devservice::DevService service_;
  QString serviceUrl_;
  QQuickWindow* window_ = nullptr;
  QString user_;
  int eventCount_ = 0;
  bool hasConsent_ = false;
  std::shared_ptr<ORLOptInMarketingCampaignDelegate> consent_;
};

}  // namespace orrelo::showroom
