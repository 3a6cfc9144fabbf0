#pragma once

#include <orrelo/Export.h>
#include <orrelo/IOrrelo.h>
#include <orrelo/Platform.h>

#include <memory>

class QQuickWindow;

/// The kit's screens in a Qt Quick application. All of this is the GUI thread's.
///
///     QGuiApplication app(argc, argv);
///     orrelo::Platform::install(orrelo::quick::platform({.bundleIdentifier = "com.example.shop"}));
///     orrelo::Orrelo::initialize(orrelo::ORLConfig("app key"));
///     QQmlApplicationEngine engine(QUrl("qrc:/Main.qml"));
///
/// The window has an OrreloHost, which wraps what the host shows itself:
///
///     import Orrelo
///     Window {
///         visible: true
///         OrreloHost { anchors.fill: parent; HomePage { anchors.fill: parent } }
///     }
///
/// and screens are shown over it from C++:
///
///     orrelo::Orrelo::showCampaign("campaign id", orrelo::quick::hostViewController(window));
///
/// They come from below. An OrreloHost with `pushesScreens: true` keeps a stack over the host's content, onto
/// which they are pushed, each under a bar with its title and the way back.
namespace orrelo::quick {

/// The POSIX machine with Qt's event loop as main loop. Needs a QGuiApplication, without which it stops the
/// process (docs/stops.md), and which outlives every use of the kit: with it the kit's threads end, for the
/// rest of the process.
ORRELO_EXPORT Platform platform(const HostApplication& host = {});

/// What stands for the host's own content in a window: screens are shown from it. One for each window,
/// which owns it; it is on the screen from when the window is first shown. Screens stay as they are while the
/// window is hidden, and do not appear anew when it is shown again; with all windows hidden the application
/// is in the background. Never null: without a window it is a screen from which nothing can be seen, and an
/// error in the kit's log.
ORRELO_EXPORT std::shared_ptr<ViewController> hostViewController(QQuickWindow* window);

/// Shows a screen that the kit has made, as by `Orrelo::getCampaignViewController`, over all that the window
/// shows. False, with a log line, where that is not possible.
ORRELO_EXPORT bool present(QQuickWindow* window, const std::shared_ptr<ViewController>& screen,
                           bool animated = true);

/// Pushes it onto the window's stack. False where there is no window, with a log line, and where the window's
/// OrreloHost does not push screens.
ORRELO_EXPORT bool push(QQuickWindow* window, const std::shared_ptr<ViewController>& screen,
                        bool animated = true);

}  // namespace orrelo::quick
