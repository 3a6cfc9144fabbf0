#pragma once

#include "campaign/stamp/StampCampaignView.h"
#include "quick/campaign/stamp/StampCellBridge.h"

#include <QVariantList>

namespace orrelo::quick {

class StampBoardBridge final : public ViewBridge {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("")
  Q_PROPERTY(int columnCount READ columnCount CONSTANT)
  Q_PROPERTY(QVariantList cells READ cells CONSTANT)

 public:
  StampBoardBridge(const std::shared_ptr<StampBoardView>& view, QObject* parent)
      : ViewBridge(view, parent), board_(*view) {
    for (const auto& cell : board_.cells) {
      cells_.push_back(QVariant::fromValue(new StampCellBridge(cell, this)));
    }
  }

  int columnCount() const { return static_cast<int>(board_.columnCount); }
  QVariantList cells() const { return cells_; }

 private:
  const StampBoardView& board_;
  QVariantList cells_;
};

}  // namespace orrelo::quick
