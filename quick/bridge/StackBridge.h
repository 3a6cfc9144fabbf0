#pragma once

#include "quick/bridge/ViewBridge.h"
#include "viewkit/base/StackView.h"

#include <QVariantList>
#include <vector>

namespace orrelo::quick {

/// The views of a stack, in rows of `block`, `inset` (null where the block has a width of its own) and
/// `spacingAfter`.
class StackBridge final : public ViewBridge {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("")
  Q_PROPERTY(QVariantList rows READ rows NOTIFY rowsChanged)
  Q_PROPERTY(double top READ top NOTIFY rowsChanged)
  Q_PROPERTY(double bottom READ bottom NOTIFY rowsChanged)

 public:
  StackBridge(const std::shared_ptr<StackView>& view, QObject* parent);

  QVariantList rows() const { return rows_; }
  double top() const { return stack_.state.value().margins.top; }
  double bottom() const { return stack_.state.value().margins.bottom; }

 Q_SIGNALS:
  void rowsChanged();

 private:
  void update();

  const StackView& stack_;
  std::vector<ViewBridge*> blocks_;
  QVariantList rows_;
};

}  // namespace orrelo::quick
