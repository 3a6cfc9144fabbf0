#pragma once

#ifndef Q_MOC_RUN  // moc cannot read <concepts>
#include <orrelo/EventValue.h>
#endif

#include <QNetworkAccessManager>
#include <QNetworkRequest>
#include <QTimer>
#include <functional>
#include <string>

namespace orrelo::showroom {

/// Stands in for a push service: asks the campaign service for the notifications that a person has put on its
/// admin page for the last user, two seconds after each reply.
class NotificationInbox final : public QObject {
  Q_OBJECT

 public:
  using Deliver = std::function<void(const EventDictionary& payload)>;

  /// `certificate` is the file of the service's certificate.
  NotificationInbox(const std::string& serviceUrl, const std::string& certificate, Deliver deliver);

 private:
  void ask();

  const QString serviceUrl_;
  QNetworkRequest request_;
  Deliver deliver_;
  QNetworkAccessManager network_;
  QTimer timer_;
};

}  // namespace orrelo::showroom
