#include "quick/bridge/StackBridge.h"

#include "quick/bridge/Bridges.h"

#include <utility>

namespace orrelo::quick {

StackBridge::StackBridge(const std::shared_ptr<StackView>& view, QObject* parent)
    : ViewBridge(view, parent), stack_(*view) {
  connect(this, &ViewBridge::stateChanged, this, &StackBridge::update);
  follow(stack_.state);
}

void StackBridge::update() {
  const auto former = std::exchange(blocks_, {});
  rows_.clear();
  for (const auto& arranged : stack_.state.value().arrangedSubviews) {
    auto* const block = makeBridge(arranged.view, this);
    blocks_.push_back(block);
    rows_.push_back(QVariantMap{
        {QStringLiteral("block"), QVariant::fromValue(block)},
        {QStringLiteral("inset"), arranged.inset ? QVariant(*arranged.inset) : QVariant::fromValue(nullptr)},
        {QStringLiteral("spacingAfter"), arranged.spacingAfter}});
  }
  Q_EMIT rowsChanged();
  // After whoever draws them, which go in the same way.
  for (auto* const block : former) block->deleteLater();
}

}  // namespace orrelo::quick
