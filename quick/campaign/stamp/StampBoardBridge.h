#pragma once

#include "campaign/stamp/StampBoardView.h"
#include "quick/campaign/stamp/StampCellBridge.h"

#include <QVariantList>

namespace orrelo::quick {

class StampBoardBridge final : public orrelo::quick::ViewBridge {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("")
  Q_PROPERTY(int columnCount MEMBER columnCount CONSTANT)
  Q_PROPERTY(QVariantList cells MEMBER cells CONSTANT)

 public:
  StampBoardBridge(const std::shared_ptr<StampBoardView>& view, QObject* parent)
      : ViewBridge(view, parent),
        columnCount(static_cast<int>(view->columnCount)),
        cells(bridgesOf<StampCellBridge>(view->cells, this)) {}

  const int columnCount;
  const QVariantList cells;
};

}  // namespace orrelo::quick
