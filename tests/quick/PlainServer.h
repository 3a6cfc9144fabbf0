#pragma once

#include <QByteArray>
#include <QHash>
#include <QString>
#include <QStringList>
#include <QTcpServer>
#include <QTcpSocket>

namespace orrelo::test {

/// Serves pages over plain HTTP from the event loop. "localhost" and "127.0.0.1" are two origins.
class PlainServer {
 public:
  PlainServer() {
    server_.listen(QHostAddress::LocalHost);
    QObject::connect(&server_, &QTcpServer::newConnection, &server_, [this] {
      auto* const socket = server_.nextPendingConnection();
      QObject::connect(socket, &QTcpSocket::readyRead, socket, [this, socket] { answer(*socket); });
      QObject::connect(socket, &QTcpSocket::disconnected, socket, &QObject::deleteLater);
    });
  }

  QString url(const QString& path, const QString& host = QStringLiteral("127.0.0.1")) const {
    return QStringLiteral("http://%1:%2%3").arg(host).arg(server_.serverPort()).arg(path);
  }

  /// The pages by path; `%OTHER%` in a page becomes the other origin.
  QHash<QString, QByteArray> pages;

 private:
  void answer(QTcpSocket& socket) const {
    const auto words = socket.readAll().split(' ');
    auto page = pages.value(QString::fromUtf8(words.value(1)));
    page.replace("%OTHER%", url({}, QStringLiteral("localhost")).toUtf8());
    socket.write(
        "HTTP/1.1 200 OK\r\nContent-Type: text/html; charset=utf-8\r\nConnection: close\r\nContent-Length: " +
        QByteArray::number(page.size()) + "\r\n\r\n" + page);
    socket.disconnectFromHost();
  }

  QTcpServer server_;
};

}  // namespace orrelo::test
