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
namespace orrelo::quick {

/// The POSIX machine with Qt's event loop as main loop. Needs a QGuiApplication, which outlives every use of
/// the kit.
ORRELO_EXPORT Platform platform(const HostApplication& host = {});

/// What stands for the host's own content in a window: screens are presented from it. One for each window,
/// which owns it; it is on the screen while the window is shown. Never null.
ORRELO_EXPORT std::shared_ptr<ViewController> hostViewController(QQuickWindow* window);

}  // namespace orrelo::quick
