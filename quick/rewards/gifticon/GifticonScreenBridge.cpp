#include "quick/rewards/gifticon/GifticonScreenBridge.h"

#include "quick/rewards/gifticon/GifticonCellBridge.h"

namespace orrelo::quick {

GifticonScreenBridge::GifticonScreenBridge(const std::shared_ptr<GifticonViewController>& screen,
                                           QObject* parent)
    : PageBridge(screen, parent),
      cells(new ListBridge(this)),
      error(new ErrorBridge(screen->errorView, this)),
      gifticons_(*screen) {
  connect(this, &ScreenBridge::stateChanged, this, &GifticonScreenBridge::updateCells);
  follow(gifticons_.stateChanges());
}

// Rows are matched by position: the list keeps its place and its focus when a voucher changes its state.
void GifticonScreenBridge::updateCells() {
  const auto state = gifticons_.state();  // a copy, since each row emits a signal
  cells->assignByPosition<GifticonCellBridge>(
      state.cells, [](GifticonCellBridge& row, const auto& cell) { row.set(cell); });
}

}  // namespace orrelo::quick

#include "moc_GifticonScreenBridge.cpp"
