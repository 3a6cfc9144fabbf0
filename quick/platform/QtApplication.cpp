#include "quick/platform/QtApplication.h"

#include <QEvent>
#include <QGuiApplication>
#include <QScreen>
#include <QWindow>
#include <algorithm>
#include <utility>

namespace orrelo::quick {
namespace {

bool canBeSeen(const QWindow* window) {
  return window->isVisible() && (window->windowStates() & Qt::WindowMinimized) == 0;
}

bool isInForeground() {
  const auto windows = QGuiApplication::topLevelWindows();
  // Phones suspend an application without hiding its window.
  const auto state = QGuiApplication::applicationState();
  return std::any_of(windows.begin(), windows.end(), canBeSeen) && state != Qt::ApplicationSuspended &&
         state != Qt::ApplicationHidden;
}

}  // namespace

QtApplication::QtApplication(std::shared_ptr<PosixApplication> application, QObject* parent)
    : QObject(parent), application_(std::move(application)), isInForeground_(isInForeground()) {
  followScreen();
  connect(qGuiApp, &QGuiApplication::primaryScreenChanged, this, [this] { followScreen(); });
  qGuiApp->installEventFilter(this);
  connect(qGuiApp, &QGuiApplication::applicationStateChanged, this, [this] { update(); });
  connect(qGuiApp, &QGuiApplication::aboutToQuit, this,
          [this] { application_->send(Application::Signal::willTerminate); });
}

// QScreen has no signal for its scale, but its size in points changes together with the scale.
void QtApplication::followScreen() {
  disconnect(scaleChange_);
  const auto* const screen = QGuiApplication::primaryScreen();
  if (screen == nullptr) return;
  const auto takeScale = [this, screen] { application_->setScreenScale(screen->devicePixelRatio()); };
  scaleChange_ = connect(screen, &QScreen::geometryChanged, this, takeScale);
  takeScale();
}

bool QtApplication::eventFilter(QObject* watched, QEvent* event) {
  const auto type = event->type();
  if (watched->isWindowType() &&
      (type == QEvent::Show || type == QEvent::Hide || type == QEvent::WindowStateChange)) {
    // The window's state changes only after the event has been delivered.
    QMetaObject::invokeMethod(
        this, [this] { update(); }, Qt::QueuedConnection);
  }
  return false;
}

void QtApplication::update() {
  const bool was = std::exchange(isInForeground_, isInForeground());
  if (was == isInForeground_) return;
  application_->send(was ? Application::Signal::didEnterBackground
                         : Application::Signal::willEnterForeground);
}

}  // namespace orrelo::quick
