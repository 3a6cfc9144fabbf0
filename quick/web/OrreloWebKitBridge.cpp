#include "quick/web/OrreloWebKitBridge.h"

#include "base/explain.h"
#include "quick/bridge/Conversions.h"
#include "quick/web/WebProfile.h"

#include <orrelo/UnsupportedEventValueException.h>
#include <orrelo/quick/OrreloQuick.h>

#include <QJsonArray>
#include <QJsonObject>
#include <QPointer>
#include <QQuickWindow>
#include <utility>

namespace orrelo::quick {
namespace {

EventValue toEventValue(const QJsonValue& json) {
  switch (json.type()) {
    case QJsonValue::Bool:
      return json.toBool();
    case QJsonValue::Double:
      return json.toDouble();
    case QJsonValue::String:
      return json.toString().toStdString();
    case QJsonValue::Array: {
      EventArray values;
      for (const auto& value : json.toArray()) values.push_back(toEventValue(value));
      return values;
    }
    case QJsonValue::Object: {
      EventDictionary values;
      const auto object = json.toObject();
      for (auto field = object.begin(); field != object.end(); ++field) {
        values.emplace(field.key().toStdString(), toEventValue(field.value()));
      }
      return values;
    }
    default:
      return nullptr;
  }
}

// The item, if it is a WebEngineView that does not have the profile of the kit's own pages; otherwise null,
// with a line that says why.
QQuickItem* hostsView(QObject* item) {
  auto* const view = qobject_cast<QQuickItem*>(item);
  const auto isView = view != nullptr && view->inherits("QQuickWebEngineView");
  if (isView && qobject_cast<WebProfile*>(view->property("profile").value<QObject*>()) == nullptr)
    return view;
  explain(ExplanationLevel::error, [item] {
    return std::string("The bridge of OrreloWebKit is not installed in ") +
           (item == nullptr ? "a null item" : item->metaObject()->className()) +
           ": pass a WebEngineView of the host, not one of the kit's own pages.";
  });
  return nullptr;
}

QWebEngineScript userScript() {
  const auto& kits = OrreloWebKit::userScript;
  QWebEngineScript script;
  script.setName(QStringLiteral("orrelo.userScript"));
  script.setSourceCode(toQt(kits.source));
  script.setWorldId(QWebEngineScript::MainWorld);
  script.setInjectionPoint(kits.injectionTime == OrreloWebKit::UserScript::InjectionTime::atDocumentEnd
                               ? QWebEngineScript::DocumentReady
                               : QWebEngineScript::DocumentCreation);
  script.setRunsOnSubFrames(!kits.forMainFrameOnly);
  return script;
}

}  // namespace

OrreloWebKitBridge& OrreloWebKitBridge::of(QObject& view) {
  auto* const found = view.findChild<OrreloWebKitBridge*>(QString(), Qt::FindDirectChildrenOnly);
  return found != nullptr ? *found : *new OrreloWebKitBridge(view);
}

void OrreloWebKitBridge::setEnabled(bool enabled) {
  if (enabled == isEnabled()) return;
  if (enabled) {
    auto* const view = hostsView(parent());
    if (view == nullptr) return;
    handler_ = std::make_unique<ScriptMessageHandler>();
    connect(handler_.get(), &ScriptMessageHandler::received, this, &OrreloWebKitBridge::handle);
    handler_->setName(toQt(OrreloWebKit::handlerName));
    handler_->setUserScript(userScript());
    handler_->setView(view);
  } else {
    handler_.reset();
  }
  Q_EMIT enabledChanged();
}

void OrreloWebKitBridge::handle(const QJsonValue& body) {
  auto* const window = qobject_cast<QQuickItem*>(parent())->window();
  const auto screen = window != nullptr ? hostViewController(window) : nullptr;
  const QPointer<OrreloWebKitBridge> self(this);  // the host may delete the view in the call
  try {
    const auto error = OrreloWebKit::handle(screen, OrreloWebKit::handlerName, toEventValue(body));
    if (error && self) fail(error, error->description());
  } catch (const UnsupportedEventValueException& exception) {
    if (self) fail(std::nullopt, exception.reason());
  }
}

void OrreloWebKitBridge::fail(const std::optional<OrreloWebkitError>& error, const std::string& description) {
  const auto callback = onFailure;  // a receiver of the signal may delete the view
  Q_EMIT failed(error ? toQt(error->caseName()) : QString(), toQt(description));
  if (callback) callback(error, description);
}

bool installBridge(QQuickItem* webEngineView, BridgeFailure onFailure) {
  if (hostsView(webEngineView) == nullptr) return false;
  auto& bridge = OrreloWebKitBridge::of(*webEngineView);
  bridge.onFailure = std::move(onFailure);
  bridge.setEnabled(true);
  return true;
}

}  // namespace orrelo::quick
