#include "quick/inspector/Inspector.h"

#include "base/explain.h"

#include <orrelo/Export.h>

#include <QGuiApplication>
#include <QKeyEvent>

namespace orrelo::quick {
namespace {

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
    return explain(ExplanationLevel::error, [this] {
      return "The inspector cannot be shown: " + component_.errorString().toStdString();
    });
  }
  // The item dies with its window.
  item->QObject::setParent(window->contentItem());
  Screen screen{item, window->activeFocusItem(), {}};
  for (auto* const child : window->contentItem()->childItems()) {
    if (child == item || !child->isEnabled()) continue;
    child->setEnabled(false);
    screen.covered.append(child);
  }
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
  for (const auto& child : screen.covered) {
    if (child) child->setEnabled(true);
  }
  if (screen.focusBefore) screen.focusBefore->forceActiveFocus();
  disconnect(window, nullptr, this, nullptr);
}

}  // namespace orrelo::quick

/// Called once by the front, on the GUI thread.
extern "C" ORRELO_EXPORT void orrelo_inspector_start() {
  new orrelo::quick::Inspector(qGuiApp);
}
