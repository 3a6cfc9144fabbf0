#include "quick/bridge/StackBridge.h"

#include "quick/bridge/Kinds.h"

namespace orrelo::quick {

StackBridge::StackBridge(const std::shared_ptr<StackView>& view, QObject* parent) : ViewBridge(view, parent) {
  for (const auto& arranged : view->arrangedSubviews) {
    const bool isLast = &arranged == &view->arrangedSubviews.back();
    rows_.push_back(QVariantMap{
        {QStringLiteral("block"), QVariant::fromValue(makeBridge(arranged.view, this))},
        {QStringLiteral("inset"), arranged.inset ? QVariant(*arranged.inset) : QVariant::fromValue(nullptr)},
        {QStringLiteral("spacingAfter"), isLast ? 0.0 : arranged.spacingAfter}});
  }
}

}  // namespace orrelo::quick

#include "moc_StackBridge.cpp"
