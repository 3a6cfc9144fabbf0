#pragma once

#include "quick/bridge/ScreenBridge.h"
#include "quick/bridge/ViewBridge.h"

#include <QUrl>
#include <memory>
#include <string_view>

namespace orrelo::quick {

// What the front knows of each kind of view and screen: the bridge that leads to it, and the file that draws
// it. A kind that is not in the list gets a plain bridge and draws nothing.

ViewBridge* makeBridge(const std::shared_ptr<View>& view, QObject* parent);
ScreenBridge* makeBridge(const std::shared_ptr<ViewController>& screen, QObject* parent);
QUrl delegateOf(std::string_view kind);

}  // namespace orrelo::quick
