#include "quick/web/ScriptMessageHandler.h"

#include "base/explain.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QUuid>
#include <QWebChannel>
#include <algorithm>
#include <utility>

namespace orrelo::quick {
namespace {

// A world of the kit's own, beside that of the pages and those that hosts usually take.
constexpr unsigned int ownWorld = QWebEngineScript::UserWorld + 0x0E;
const auto channelPrefix = QStringLiteral("orrelo.");

// A call of the function in a script file of the module.
QString callOf(const QString& file, const QJsonArray& arguments) {
  QFile source(QStringLiteral(":/qt-project.org/imports/Orrelo/Web/") + file);
  if (!source.open(QIODevice::ReadOnly)) return {};
  auto list = QJsonDocument(arguments).toJson(QJsonDocument::Compact);
  list = list.mid(1, list.size() - 2);
  return QString::fromUtf8(source.readAll()).trimmed() + QLatin1Char('(') + QString::fromUtf8(list) +
         QLatin1Char(')');
}

QWebEngineScript earlyScript(const QString& name, const QString& source, unsigned int world, bool inFrames) {
  QWebEngineScript script;
  script.setName(name);
  script.setSourceCode(source);
  script.setWorldId(world);
  script.setInjectionPoint(QWebEngineScript::DocumentCreation);
  script.setRunsOnSubFrames(inFrames);
  return script;
}

bool isUsedByHost(const QWebChannel& channel) {
  const auto objects = channel.registeredObjects();
  return std::any_of(objects.keyBegin(), objects.keyEnd(),
                     [](const QString& name) { return !name.startsWith(channelPrefix); });
}

}  // namespace

ScriptMessageHandler::ScriptMessageHandler(QObject* parent)
    : QObject(parent), token_(QUuid::createUuid().toString(QUuid::WithoutBraces)) {
  connect(&port_, &ScriptMessagePort::posted, this, &ScriptMessageHandler::didPost);
}

ScriptMessageHandler::~ScriptMessageHandler() {
  uninstall();
}

void ScriptMessageHandler::setView(QQuickItem* view) {
  if (view == view_) return;
  uninstall();
  view_ = view;
  install();
  Q_EMIT viewChanged();
}

void ScriptMessageHandler::setName(const QString& name) {
  if (name == name_) return;
  uninstall();
  name_ = name;
  install();
  Q_EMIT nameChanged();
}

// The view's class is not public; it is used through its properties.
void ScriptMessageHandler::install() {
  if (!view_ || name_.isEmpty() || !view_->inherits("QQuickWebEngineView")) return;
  connect(view_, SIGNAL(webChannelChanged()), this, SLOT(connectChannel()));
  connect(view_, SIGNAL(webChannelWorldChanged(uint)), this, SLOT(connectChannel()));
  connect(view_, SIGNAL(loadingChanged(QWebEngineLoadingInfo)), this, SLOT(checkWorld()));
  connect(scripts(), SIGNAL(collectionChanged()), this, SLOT(keepScripts()));
  connectChannel();
}

void ScriptMessageHandler::uninstall() {
  if (channel_) channel_->deregisterObject(&port_);
  channel_ = nullptr;
  auto* const scripts = view_ ? this->scripts() : nullptr;
  if (scripts == nullptr) return;
  view_->disconnect(this);
  scripts->disconnect(this);
  for (const auto& script : std::exchange(installed_, {})) {
    QMetaObject::invokeMethod(scripts, "remove", Q_ARG(QWebEngineScript, script));
  }
}

QObject* ScriptMessageHandler::scripts() const {
  return view_->property("userScripts").value<QObject*>();
}

QString ScriptMessageHandler::channelName() const {
  return channelPrefix + name_;
}

void ScriptMessageHandler::connectChannel() {
  auto* const channel = qobject_cast<QWebChannel*>(view_->property("webChannel").value<QObject*>());
  if (channel != channel_) {
    if (channel_) channel_->deregisterObject(&port_);
    channel_ = channel;
    if (channel_) channel_->registerObject(channelName(), &port_);
  }
  if (!channel_) return;
  const auto world = view_->property("webChannelWorld").toUInt();
  const auto wanted = isUsedByHost(*channel_) ? unsigned(QWebEngineScript::MainWorld) : ownWorld;
  if (world != wanted && (world == ownWorld || world == QWebEngineScript::MainWorld)) {
    view_->setProperty("webChannelWorld", wanted);  // calls this function again
    return;
  }
  for (const auto& script : std::exchange(installed_, makeScripts(world))) {
    QMetaObject::invokeMethod(scripts(), "remove", Q_ARG(QWebEngineScript, script));
  }
  keepScripts();
}

void ScriptMessageHandler::checkWorld() {
  if (!channel_ || hasWarned_ || !isUsedByHost(*channel_)) return;
  if (view_->property("webChannelWorld").toUInt() != ownWorld) return;
  hasWarned_ = true;
  explain(ExplanationLevel::warning,
          "Pages cannot reach the objects in the web channel of a WebEngineView, since they were registered "
          "after the bridge was installed: register them before, or set webChannelWorld.");
}

QList<QWebEngineScript> ScriptMessageHandler::makeScripts(unsigned int world) const {
  const auto handler = callOf(QStringLiteral("messageHandler.js"), {name_, token_});
  const auto receiver =
      callOf(QStringLiteral("messageReceiver.js"),
             {channelName(), ScriptMessagePort::staticMetaObject.indexOfProperty("message"), token_});
  QList<QWebEngineScript> made{
      earlyScript(channelName() + QStringLiteral(".receiver"), receiver, world, false),
      earlyScript(channelName() + QStringLiteral(".handler"), handler, QWebEngineScript::MainWorld, true)};
  if (!userScript_.sourceCode().isEmpty()) made.push_back(userScript_);
  return made;
}

void ScriptMessageHandler::keepScripts() {
  if (std::exchange(isInserting_, true)) return;
  auto* const scripts = this->scripts();
  for (const auto& script : std::as_const(installed_)) {
    bool isThere = false;
    QMetaObject::invokeMethod(scripts, "contains", Q_RETURN_ARG(bool, isThere),
                              Q_ARG(QWebEngineScript, script));
    if (!isThere) QMetaObject::invokeMethod(scripts, "insert", Q_ARG(QWebEngineScript, script));
  }
  isInserting_ = false;
}

void ScriptMessageHandler::didPost(const QString& text) {
  if (text.startsWith(QLatin1Char('t'))) {
    Q_EMIT received(text.mid(1));
  } else {
    // A value in an array, since the parser only accepts arrays and objects.
    const auto json = "[" + text.mid(1).toUtf8() + "]";
    Q_EMIT received(QJsonDocument::fromJson(json).array().at(0));
  }
}

}  // namespace orrelo::quick
