#include "quick/bridge/Kinds.h"

#include "base/explain.h"

#include <algorithm>

namespace orrelo::quick {
namespace {

template <class Row>
const Row* find(std::span<const Row> Kinds::*rows, std::string_view name) {
  for (const auto& folder : allKinds()) {
    const auto found = std::find_if((folder.*rows).begin(), (folder.*rows).end(),
                                    [name](const Row& row) { return row.name == name; });
    if (found != (folder.*rows).end()) return &*found;
  }
  return nullptr;
}

void explainUndrawn(std::string_view kind) {
  explain(ExplanationLevel::error, [kind] {
    return std::string(kind) +
           " is not seen, since this version of the front draws no such part: use the "
           "versions of orrelo::core and orrelo::quick that belong together.";
  });
}

QUrl fileOf(std::string_view kind) {
  return moduleFile(toQt(kind) + QStringLiteral(".qml"));
}

}  // namespace

ViewBridge* makeBridge(const std::shared_ptr<View>& view, QObject* parent) {
  if (const auto* row = find(&Kinds::views, view->kind())) return row->make(view, parent);
  explainUndrawn(view->kind());
  return new ViewBridge(view, parent);
}

ScreenBridge* makeBridge(const std::shared_ptr<ViewController>& screen, QObject* parent) {
  if (const auto* row = find(&Kinds::screens, screen->kind())) return row->make(screen, parent);
  explainUndrawn(screen->kind());
  return new ScreenBridge(screen, parent);
}

QUrl delegateOf(std::string_view kind) {
  const bool isRegistered = find(&Kinds::views, kind) != nullptr || find(&Kinds::screens, kind) != nullptr;
  return isRegistered ? fileOf(kind) : QUrl();
}

std::vector<QUrl> allDelegates() {
  std::vector<QUrl> files;
  for (const auto& folder : allKinds()) {
    for (const auto& row : folder.views) files.push_back(fileOf(row.name));
    for (const auto& row : folder.screens) files.push_back(fileOf(row.name));
  }
  return files;
}

}  // namespace orrelo::quick
