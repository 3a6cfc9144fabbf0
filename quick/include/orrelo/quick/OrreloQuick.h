#pragma once

#include <orrelo/Export.h>
#include <orrelo/IOrrelo.h>
#include <orrelo/Platform.h>

#include <memory>

class QQuickWindow;

/// The kit's screens in a Qt Quick application. All functions belong to the GUI thread: on another thread
/// `platform` must not be called, and the others do as without a window.
///
///     QGuiApplication app(argc, argv);
///     orrelo::Platform::install(orrelo::quick::platform({.bundleIdentifier = "com.example.shop"}));
///     orrelo::Orrelo::initialize(orrelo::ORLConfig("app key"));
///     QQmlApplicationEngine engine(QUrl("qrc:/Main.qml"));
///
/// The window contains an OrreloHost, which wraps the host's own content:
///
///     import Orrelo
///     Window {
///         visible: true
///         OrreloHost { anchors.fill: parent; HomePage { anchors.fill: parent } }
///     }
///
/// Screens are shown over it from C++:
///
///     orrelo::Orrelo::showCampaign("campaign id", orrelo::quick::hostViewController(window));
///
/// They slide in from below. An OrreloHost with `pushesScreens: true` pushes them onto a stack over the
/// host's content instead, each with a bar that shows its title and a back button.
namespace orrelo::quick {

/// The POSIX platform with Qt's event loop as the main loop. Requires a QGuiApplication; without one it stops
/// the process (docs/stops.md). The QGuiApplication must outlive every use of the kit: its destruction ends
/// the kit's threads for the rest of the process.
ORRELO_EXPORT Platform platform(const HostApplication& host = {});

/// Switches on or off what prepares the process for its first campaign; it is on. While the host rests after
/// its first frame in a window with an OrreloHost, the kit has Qt load what this campaign would otherwise
/// wait for: image plugins and QML files on other threads, fonts and the first objects of QML types on the
/// GUI thread, in steps that are meant to take less than 2 ms each, and none while a window draws frames or
/// takes input. It takes some tenths of a second and 2 MiB of memory, most of which the campaign would take
/// anyway. Call it before the window is created. ORRELO_WARM_UP=0 in the environment does the same as
/// `false`.
ORRELO_EXPORT void setWarmUpEnabled(bool isOn);

/// The screen that represents the host's own content in a window; the kit's screens are shown from it. Each
/// window owns one, which appears when the window is first shown. Screens keep their state while the window
/// is hidden and do not appear again when it is shown again. The application is in the background while all
/// windows are hidden. Never null: without a window the result is a screen that is not visible anywhere, and
/// a line of ORLExplanations says so.
ORRELO_EXPORT std::shared_ptr<ViewController> hostViewController(QQuickWindow* window);

/// Shows a screen that the kit has created, for example with `Orrelo::getCampaignViewController`, over
/// everything in the window. Returns false if that is not possible, and a line of ORLExplanations says why.
ORRELO_EXPORT bool present(QQuickWindow* window, const std::shared_ptr<ViewController>& screen,
                           bool animated = true);

/// Pushes the screen onto the window's stack. Returns false if the window's OrreloHost does not push screens,
/// or if there is no window; a line of ORLExplanations says which.
ORRELO_EXPORT bool push(QQuickWindow* window, const std::shared_ptr<ViewController>& screen,
                        bool animated = true);

}  // namespace orrelo::quick
