#include "quick/bridge/StackBridge.h"

#include "quick/bridge/Kinds.h"

namespace orrelo::quick {
namespace {

QVariantList rowsOf(const StackView& view, QObject* parent) {
  QVariantList rows;
  for (const auto& arranged : view.arrangedSubviews) {
    const bool isLast = &arranged == &view.arrangedSubviews.back();
    rows.push_back(QVariantMap{
        {QStringLiteral("block"), QVariant::fromValue(makeBridge(arranged.view, parent))},
        {QStringLiteral("inset"), arranged.inset ? QVariant(*arranged.inset) : QVariant::fromValue(nullptr)},
        {QStringLiteral("spacingAfter"), isLast ? 0.0 : arranged.spacingAfter}});
  }
  return rows;
}

}  // namespace

StackBridge::StackBridge(const std::shared_ptr<StackView>& view, QObject* parent)
    : ViewBridge(view, parent), rows(rowsOf(*view, this)) {}

}  // namespace orrelo::quick

#include "moc_StackBridge.cpp"
