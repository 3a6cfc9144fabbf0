#pragma once

#include "quick/bridge/ScreenBridge.h"
#include "quick/bridge/ViewBridge.h"

#include <orrelo/Export.h>

#include <QUrl>
#include <memory>
#include <span>
#include <string_view>
#include <vector>

namespace orrelo::quick {

/// Registers a kind of view or screen: its name, which is also the name of its QML file, and the factory of
/// its bridge.
template <class CoreBase, class BridgeBase>
struct Kind {
  std::string_view name;
  BridgeBase* (*make)(const std::shared_ptr<CoreBase>& core, QObject* parent);
};
using ViewKind = Kind<View, ViewBridge>;
using ScreenKind = Kind<ViewController, ScreenBridge>;

/// The entry for a view: `viewKind<StampBoardView, StampBoardBridge>()`.
template <class Core, class Bridge>
constexpr ViewKind viewKind() {
  return {Core::kindName, [](const std::shared_ptr<View>& view, QObject* parent) -> ViewBridge* {
            return new Bridge(std::static_pointer_cast<Core>(view), parent);
          }};
}

/// The entry for a screen.
template <class Core, class Bridge>
constexpr ScreenKind screenKind() {
  return {Core::kindName,
          [](const std::shared_ptr<ViewController>& screen, QObject* parent) -> ScreenBridge* {
            return new Bridge(std::static_pointer_cast<Core>(screen), parent);
          }};
}

/// The entries of one folder.
struct Kinds {
  std::span<const ViewKind> views = {};
  std::span<const ScreenKind> screens = {};
};

/// The entries of all folders, as listed in quick/kinds.cpp.
std::span<const Kinds> allKinds();

/// Creates the bridge of the view's kind. A kind that is not registered gets a plain bridge, which draws
/// nothing.
ViewBridge* makeBridge(const std::shared_ptr<View>& view, QObject* parent);
ScreenBridge* makeBridge(const std::shared_ptr<ViewController>& screen, QObject* parent);
/// The QML file that draws this kind; empty if the kind is not registered.
QUrl delegateOf(std::string_view kind);
/// The QML files of all registered kinds, for the test that compiles them.
ORRELO_EXPORT std::vector<QUrl> allDelegates();

}  // namespace orrelo::quick
