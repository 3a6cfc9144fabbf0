#include "quick/host/HostWindow.h"

#include "base/explain.h"
#include "ui/KeyWindow.h"

#include <orrelo/MainLoop.h>
#include <orrelo/Platform.h>
#include <orrelo/quick/OrreloQuick.h>

#include <QGuiApplication>
#include <QQuickWindow>
#include <QThread>
#include <algorithm>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace orrelo::quick {
namespace {

// `lowest` and the screens above it, each presented by the one before.
std::vector<std::shared_ptr<ViewController>> chain(const std::shared_ptr<ViewController>& lowest) {
  std::vector<std::shared_ptr<ViewController>> screens;
  for (auto screen = lowest; screen; screen = screen->presentedViewController()) screens.push_back(screen);
  return screens;
}

void explainCall(std::string_view call, std::string_view cause) {
  explain(ExplanationLevel::error, [&] { return std::string(call) + std::string(cause); });
}

// Returns whether the call can be carried out; otherwise a line says how the host should call the function.
bool canWork(const QQuickWindow* window, std::string_view call) {
  if (window == nullptr) {
    explainCall(call,
                " was given no window, and nothing will be seen: call it after the QML file has loaded, "
                "with its QQuickWindow.");
    return false;
  }
  if (QThread::currentThread() != window->thread()) {
    explainCall(call,
                " is called on another thread than the window's, and does nothing: call it on the GUI "
                "thread, for example in a task of the main loop.");
    return false;
  }
  return true;
}

void explainMissingFront(std::string_view call) {
  if (std::dynamic_pointer_cast<RunLoop>(Platform::current().mainLoop) == nullptr) return;
  explainCall(call,
              " finds a platform without Qt's event loop, so that screens do not come: call "
              "Platform::install(quick::platform()) before anything else of the kit.");
}

HostWindow* existing(const QWindow& window) {
  for (auto* child : window.children()) {
    if (auto* const found = dynamic_cast<HostWindow*>(child)) return found;
  }
  return nullptr;
}

}  // namespace

HostWindow& HostWindow::of(QQuickWindow& window) {
  auto* const found = existing(window);
  return found != nullptr ? *found : *new HostWindow(window);
}

std::shared_ptr<HostViewController> HostWindow::keyScreen() {
  auto* const window = windowOf(keyWindowRootViewController());
  return window == nullptr ? nullptr : of(*window).screen();
}

QQuickWindow* HostWindow::windowOf(const std::shared_ptr<ViewController>& screen) {
  auto lowest = screen;
  while (lowest && lowest->presentingViewController()) lowest = lowest->presentingViewController();
  if (!lowest) return nullptr;
  for (auto* const window : QGuiApplication::allWindows()) {
    const auto* const host = existing(*window);
    if (host != nullptr && host->root() == lowest->root()) return static_cast<QQuickWindow*>(window);
  }
  return nullptr;
}

HostWindow::HostWindow(QQuickWindow& window) : QObject(&window) {
  // Hiding a window moves the application to the background but does not make screens disappear. They
  // disappear when the window is destroyed.
  connect(&window, &QWindow::visibleChanged, this, [this](bool isVisible) {
    if (isVisible) appear();
  });
  connect(&window, &QWindow::activeChanged, this, [this, &window] {
    if (window.isActive()) setKeyWindowRootViewController(root());
  });
  if (window.isActive() || !keyWindowRootViewController()) setKeyWindowRootViewController(root());
  if (window.isVisible()) appear();
  subscriptions_.follow(screen_->presentedChanges(), [this] { explainMissingHost(); });
}

HostWindow::~HostWindow() {
  disappear();
}

void HostWindow::explainMissingHost() const {
  if (hasHost_ || !screen_->presentedViewController()) return;
  explain(ExplanationLevel::error, [this] {
    return std::string(screen_->presentedViewController()->kind()) +
           " is shown in a window without an OrreloHost, so that nothing is seen: wrap the window's "
           "content in an OrreloHost (import Orrelo).";
  });
}

void HostWindow::makeNavigation() {
  if (navigation_) return;
  // A screen that is presented now would have a presenter that is no longer the root.
  if (screen_->presentedViewController()) screen_->dismiss(false);
  const bool isKey = keyWindowRootViewController() == screen_;
  navigation_ = NavigationController::create(screen_);
  if (isKey) setKeyWindowRootViewController(navigation_);
  if (screen_->isVisible()) navigation_->appear(false);
}

void HostWindow::appear() {
  const auto screens = chain(root());
  const auto covering = std::find_if(screens.rbegin(), screens.rend() - 1, [](const auto& screen) {
    return screen->modalPresentationStyle == ModalPresentationStyle::fullScreen;
  });
  for (auto screen = covering.base() - 1; screen != screens.end(); ++screen) (*screen)->appear(false);
}

void HostWindow::disappear() {
  const auto screens = chain(root());
  for (auto screen = screens.rbegin(); screen != screens.rend(); ++screen) (*screen)->disappear(false);
}

std::shared_ptr<ViewController> hostViewController(QQuickWindow* window) {
  if (!canWork(window, "hostViewController")) return std::make_shared<HostViewController>();
  explainMissingFront("hostViewController");
  return HostWindow::of(*window).screen();
}

bool present(QQuickWindow* window, const std::shared_ptr<ViewController>& screen, bool animated) {
  if (!canWork(window, "present")) return false;
  explainMissingFront("present");
  return HostWindow::of(*window).root()->topmost()->present(screen, animated);
}

bool push(QQuickWindow* window, const std::shared_ptr<ViewController>& screen, bool animated) {
  if (!canWork(window, "push")) return false;
  explainMissingFront("push");
  const auto& navigation = HostWindow::of(*window).navigation();
  if (!navigation) {
    explain(ExplanationLevel::error,
            "push shows nothing, since the window has no OrreloHost that pushes screens: set its "
            "pushesScreens, or call present.");
  }
  if (navigation) navigation->pushViewController(screen, animated);
  return navigation != nullptr;
}

}  // namespace orrelo::quick
