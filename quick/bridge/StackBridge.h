#pragma once

#include "quick/bridge/ViewBridge.h"
#include "ui/StackView.h"

#include <QAccessible>
#include <QVariantList>

namespace orrelo::quick {

/// The views of a stack. Each row has the members `block`, `inset` (null if the block has a width of its own)
/// and `spacingAfter`.
class StackBridge final : public orrelo::quick::ViewBridge {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("")
  Q_PROPERTY(QVariantList rows MEMBER rows CONSTANT)
  /// True if assistive technology, which reads the whole page, is in use.
  Q_PROPERTY(bool isRead MEMBER isRead CONSTANT)

 public:
  StackBridge(const std::shared_ptr<StackView>& view, QObject* parent);

  const QVariantList rows;
  const bool isRead = QAccessible::isActive();
};

}  // namespace orrelo::quick
