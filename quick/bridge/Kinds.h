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

/// What the front knows of a kind of view or screen: its name, which its QML file bears too, and the bridge
/// that leads to it.
template <class CoreBase, class BridgeBase>
struct Kind {
  std::string_view name;
  BridgeBase* (*make)(const std::shared_ptr<CoreBase>& core, QObject* parent);
};
using ViewKind = Kind<View, ViewBridge>;
using ScreenKind = Kind<ViewController, ScreenBridge>;

/// The row of a view: `viewKind<StampBoardView, StampBoardBridge>()`.
template <class Core, class Bridge>
constexpr ViewKind viewKind() {
  return {Core::kindName, [](const std::shared_ptr<View>& view, QObject* parent) -> ViewBridge* {
            return new Bridge(std::static_pointer_cast<Core>(view), parent);
          }};
}

/// The row of a screen.
template <class Core, class Bridge>
constexpr ScreenKind screenKind() {
  return {Core::kindName,
          [](const std::shared_ptr<ViewController>& screen, QObject* parent) -> ScreenBridge* {
            return new Bridge(std::static_pointer_cast<Core>(screen), parent);
          }};
}

/// The rows of a folder.
struct Kinds {
  std::span<const ViewKind> views = {};
  std::span<const ScreenKind> screens = {};
};

/// Every folder's, as listed in quick/kinds.cpp.
std::span<const Kinds> allKinds();

/// A kind without a row gets a plain bridge and draws nothing.
ViewBridge* makeBridge(const std::shared_ptr<View>& view, QObject* parent);
ScreenBridge* makeBridge(const std::shared_ptr<ViewController>& screen, QObject* parent);
/// The file that draws it; empty for a kind without a row.
QUrl delegateOf(std::string_view kind);
/// The files of all rows, for the test that compiles them.
ORRELO_EXPORT std::vector<QUrl> allDelegates();

}  // namespace orrelo::quick
