#pragma once

#include <QJsonValue>
#include <QPointer>
#include <QQuickItem>
#include <QString>
#include <QWebEngineScript>
#include <QtQml/qqmlregistration.h>

class QWebChannel;

namespace orrelo::quick {

/// The host's end of one message handler, and all of it that a page could reach through the web channel.
class ScriptMessagePort final : public QObject {
  Q_OBJECT
  Q_PROPERTY(QString message READ message WRITE post NOTIFY messageChanged)

 public:
  using QObject::QObject;

  static QString message() { return {}; }
  void post(const QString& text) { Q_EMIT posted(text); }

 Q_SIGNALS:
  /// Never emitted; the web channel requires it.
  void messageChanged();
  void posted(const QString& text);
};

/// Gives the pages in a WebEngineView `window.webkit.messageHandlers.<name>.postMessage`, in all frames and
/// before their own scripts run. It takes effect with the next page that is loaded. GUI thread.
///
/// The engine's web channel exists in the main frame alone. A script there receives the messages of all
/// frames through ports. The channel is in a world that pages cannot reach, unless the host uses the view's
/// channel itself; a page can then also reach the objects that the host has registered.
class ScriptMessageHandler : public QObject {
  Q_OBJECT
  QML_ELEMENT
  Q_PROPERTY(QQuickItem* view READ view WRITE setView NOTIFY viewChanged)
  Q_PROPERTY(QString name READ name WRITE setName NOTIFY nameChanged)

 public:
  explicit ScriptMessageHandler(QObject* parent = nullptr);
  ~ScriptMessageHandler() override;

  /// A WebEngineView; other items and null get nothing.
  QQuickItem* view() const { return view_; }
  void setView(QQuickItem* view);
  QString name() const { return name_; }
  void setName(const QString& name);
  /// Also injects a script into each page; call it before `setView`.
  void setUserScript(const QWebEngineScript& script) { userScript_ = script; }

 Q_SIGNALS:
  void viewChanged();
  void nameChanged();
  /// A message of a page, as JSON; undefined for a value without a JSON form.
  void received(const QJsonValue& body);

 private Q_SLOTS:
  /// Connects the port to the view's current channel.
  void connectChannel();
  /// Adds the scripts to the view again if others have replaced all scripts.
  void keepScripts();
  /// Logs once if the host has registered objects in a channel that was moved to the world of the kit.
  void checkWorld();

 private:
  void install();
  void uninstall();
  void didPost(const QString& text);
  QObject* scripts() const;
  QString channelName() const;
  QList<QWebEngineScript> makeScripts(unsigned int world) const;

  QPointer<QQuickItem> view_;
  QString name_;
  QWebEngineScript userScript_;
  /// Tells the messages of the frames' scripts from those of pages.
  const QString token_;
  ScriptMessagePort port_;
  QPointer<QWebChannel> channel_;
  QList<QWebEngineScript> installed_;
  bool isInserting_ = false;
  bool hasWarned_ = false;
};

}  // namespace orrelo::quick
