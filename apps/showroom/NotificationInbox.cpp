#include "NotificationInbox.h"

#include "readPayload.h"

#include <orrelo/Platform.h>
#include <orrelo/UserDefaults.h>

#include <QNetworkReply>
#include <QSslCertificate>
#include <QSslConfiguration>
#include <QUrl>
#include <QUrlQuery>
#include <chrono>
#include <iostream>
#include <utility>

namespace orrelo::showroom {

NotificationInbox::NotificationInbox(const std::string& serviceUrl, const std::string& certificate,
                                     Deliver deliver)
    : serviceUrl_(QString::fromStdString(serviceUrl)), deliver_(std::move(deliver)) {
  auto tls = QSslConfiguration::defaultConfiguration();
  tls.setCaCertificates(QSslCertificate::fromPath(QString::fromStdString(certificate)));
  request_.setSslConfiguration(tls);
  request_.setTransferTimeout();
  connect(&timer_, &QTimer::timeout, this, &NotificationInbox::ask);
  timer_.setSingleShot(true);
  timer_.start(std::chrono::seconds(2));
}

void NotificationInbox::ask() {
  // A user who has signed out is asked for too: the service keeps the last user's token, as a push service
  // would.
  const auto user = Platform::current().userDefaults->standard()->text("orrelo_user_id");
  if (!user) return timer_.start();
  QUrl url(serviceUrl_ + QStringLiteral("/admin/notifications"));
  QUrlQuery query;
  query.addQueryItem(QStringLiteral("app"), QStringLiteral("showroom"));
  query.addQueryItem(QStringLiteral("user"),
                     QString::fromLatin1(QUrl::toPercentEncoding(QString::fromStdString(*user))));
  url.setQuery(query);
  request_.setUrl(url);
  auto* const reply = network_.deleteResource(request_);
  connect(reply, &QNetworkReply::finished, this, [this, reply] {
    timer_.start();
    reply->deleteLater();
    if (reply->error() != QNetworkReply::NoError) return;
    try {
      for (const auto& payload : notification::payloadsOf(reply->readAll().toStdString())) deliver_(payload);
    } catch (const std::exception& exception) {
      std::cerr << "orrelo-showroom: " << exception.what() << std::endl;
    }
  });
}

}  // namespace orrelo::showroom
