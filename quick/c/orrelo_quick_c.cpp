#include "c/handles.h"
#include "quick/c/HostWindows.h"
#include "quick/c/QtHandles.h"

#include <orrelo/orrelo_quick_c.h>
#include <orrelo/quick/ExternalPointEntryView.h>
#include <orrelo/quick/ORLCampaignEntryView.h>
#include <orrelo/quick/ORLCampaignFloatingActionButton.h>
#include <orrelo/quick/OrreloQuick.h>

#include <QQuickItem>
#include <QQuickWindow>

using namespace orrelo;
using namespace orrelo::c;
using quick::HostWindows;

namespace {

void requireDone(bool isDone, const char* message) {
  if (!isDone) throw CallFailure{ORRELO_FAILED, message};
}

HostWindows& windows() {
  requireMainThread();
  auto* const windows = HostWindows::current();
  requireDone(windows != nullptr, "orrelo_quick_application_start comes first");
  return *windows;
}

template <class Work>
orrelo_status attemptInWindow(void* window, const Work& work) {
  return attempt([&] {
    requireMainThread();
    work(objectOf<QQuickWindow>(window, "window"));
  });
}

template <class Make>
void* makeItem(void* parent, const Make& make) {
  return attemptNew([&]() -> void* {
    requireMainThread();
    // The pointer that the other functions take back is that of the QObject.
    return static_cast<QObject*>(make(objectOf<QQuickItem>(parent, "parent")));
  });
}

}  // namespace

orrelo_status orrelo_quick_application_start(int argc, const char* const* argv) {
  return attempt([&] {
    requireDone(QCoreApplication::instance() == nullptr, "there is an application already");
    HostWindows::start(argc, argv);
  });
}

orrelo_status orrelo_quick_application_run(int32_t* exitCode) {
  return attempt([&] {
    requireMainThread();
    const int code = QGuiApplication::exec();
    if (exitCode != nullptr) *exitCode = code;
  });
}

void orrelo_quick_application_quit(int32_t exitCode) {
  attemptSilently([exitCode] {
    auto* const application = QCoreApplication::instance();
    if (application == nullptr) return;
    QMetaObject::invokeMethod(
        application, [exitCode] { QCoreApplication::exit(exitCode); }, Qt::QueuedConnection);
  });
}

orrelo_status orrelo_quick_application_finish() {
  return attempt([] {
    windows();
    requireDone(QThread::currentThread()->loopLevel() == 0,
                "call it after orrelo_quick_application_run has returned");
    HostWindows::finish();
  });
}

void* orrelo_quick_window_open(const char* path) {
  return attemptNew([&]() -> void* {
    return static_cast<QObject*>(windows().open(QString::fromUtf8(required(path, "path"))));
  });
}

orrelo_status orrelo_quick_window_close(void* window) {
  return attempt([&] {
    if (windows().close(static_cast<const QObject*>(required(window, "window")))) return;
    throw CallFailure{ORRELO_INVALID_ARGUMENT, "this is no open window of orrelo_quick_window_open"};
  });
}

void* orrelo_quick_window_item(void* window, const char* objectName) {
  QObject* item = nullptr;
  attemptInWindow(window, [&](QQuickWindow* host) {
    item = objectName == nullptr ? host->contentItem()
                                 : host->findChild<QQuickItem*>(QString::fromUtf8(objectName));
    if (item == nullptr) throw CallFailure{ORRELO_INVALID_ARGUMENT, "no item has this objectName"};
  });
  return item;
}

orrelo_status orrelo_quick_install_platform(const orrelo_host_application* host) {
  return attempt([&] {
    requireMainThread();
    Platform::install(quick::platform(host == nullptr ? HostApplication() : host->host));
  });
}

orrelo_status orrelo_quick_set_warm_up_enabled(bool isOn) {
  return attempt([isOn] {
    requireMainThread();
    quick::setWarmUpEnabled(isOn);
  });
}

orrelo_view_controller* orrelo_quick_host_view_controller(void* window) {
  orrelo_view_controller* made = nullptr;
  attemptInWindow(window, [&](QQuickWindow* host) {
    made = new orrelo_view_controller{quick::hostViewController(host)};
  });
  return made;
}

orrelo_status orrelo_quick_present(void* window, const orrelo_view_controller* screen, bool animated) {
  return attemptInWindow(window, [&](QQuickWindow* host) {
    requireDone(quick::present(host, required(screen, "screen")->screen, animated),
                "the screen cannot be presented");
  });
}

orrelo_status orrelo_quick_push(void* window, const orrelo_view_controller* screen, bool animated) {
  return attemptInWindow(window, [&](QQuickWindow* host) {
    requireDone(quick::push(host, required(screen, "screen")->screen, animated),
                "the window's OrreloHost does not push screens");
  });
}

void* orrelo_quick_new_campaign_entry_view(void* parent, const char* entryName) {
  return makeItem(parent, [&](QQuickItem* item) {
    auto* const entry = new quick::ORLCampaignEntryView(item);
    if (entryName != nullptr) entry->setEntryName(QString::fromUtf8(entryName));
    return entry;
  });
}

orrelo_status orrelo_quick_campaign_entry_view_set_clickable_views(void* entryView, void* const* items,
                                                                   size_t count) {
  return attempt([&] {
    requireMainThread();
    auto* const entry = objectOf<quick::ORLCampaignEntryView>(entryView, "entryView");
    QList<QQuickItem*> views;
    for (size_t i = 0; i < count; ++i)
      views.append(objectOf<QQuickItem>(required(items, "items")[i], "an item"));
    entry->setClickableViews(views);
  });
}

orrelo_status orrelo_quick_campaign_entry_view_set_entry_name(void* entryView, const char* entryName) {
  return attempt([&] {
    requireMainThread();
    auto* const entry = objectOf<quick::ORLCampaignEntryView>(entryView, "entryView");
    entry->setEntryName(QString::fromUtf8(required(entryName, "entryName")));
  });
}

void* orrelo_quick_new_campaign_floating_action_button(void* parent) {
  return makeItem(parent, [](QQuickItem* item) { return new quick::ORLCampaignFloatingActionButton(item); });
}

void* orrelo_quick_new_external_point_entry_view(void* parent) {
  return makeItem(parent, [](QQuickItem* item) { return quick::makeExternalPointEntryView(item); });
}
