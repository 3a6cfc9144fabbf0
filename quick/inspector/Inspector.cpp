#include "quick/inspector/Inspector.h"

#include <orrelo/Export.h>

#include <QGuiApplication>
#include <QKeyEvent>
#include <QLoggingCategory>

namespace orrelo::quick {
namespace {

Q_LOGGING_CATEGORY(inspectorLog, "orrelo.inspector")

bool isShortcut(const QKeyEvent& event) {
  return event.key() == Qt::Key_O && event.modifiers() == (Qt::ControlModifier | Qt::ShiftModifier) &&
         !event.isAutoRepeat();
}

}  // namespace

Inspector::Inspector(QObject* parent)
    : QObject(parent),
      component_(&engine_,
                 QUrl(QStringLiteral("qrc:/qt-project.org/imports/Orrelo/Inspector/InspectorScreen.qml"))) {
  qGuiApp->installEventFilter(this);
}

bool Inspector::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::KeyPress || !isShortcut(*static_cast<QKeyEvent*>(event))) return false;
  auto* const window = qobject_cast<QQuickWindow*>(watched);
  if (window == nullptr) return false;
  screens_.value(window).item ? close(window) : open(window);
  return true;
}

void Inspector::open(QQuickWindow* window) {
  auto* const item = qobject_cast<QQuickItem*>(component_.createWithInitialProperties(
      {{QStringLiteral("parent"), QVariant::fromValue(window->contentItem())}}));
  if (item == nullptr) {
    qCWarning(inspectorLog) << "The inspector cannot be shown:" << component_.errorString();
    return;
  }
  // The item dies with its window.
  item->QObject::setParent(window->contentItem());
  const Screen screen{item, window->activeFocusItem()};
  screens_.insert(window, screen);
  connect(window, &QObject::destroyed, this, [this, window] { screens_.remove(window); });
  connect(item, SIGNAL(closed()), this, SLOT(closeSender()));
  item->forceActiveFocus(Qt::ShortcutFocusReason);
}

void Inspector::closeSender() {
  const auto* const item = qobject_cast<QQuickItem*>(sender());
  if (item != nullptr && item->window() != nullptr) close(item->window());
}

void Inspector::close(QQuickWindow* window) {
  const auto screen = screens_.take(window);
  if (screen.item) screen.item->deleteLater();
  if (screen.item) screen.item->setVisible(false);
  if (screen.focusBefore) screen.focusBefore->forceActiveFocus();
  disconnect(window, nullptr, this, nullptr);
}

}  // namespace orrelo::quick

/// Called once by the front, on the GUI thread.
extern "C" ORRELO_EXPORT void orrelo_inspector_start() {
  new orrelo::quick::Inspector(qGuiApp);
}
