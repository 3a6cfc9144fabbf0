#pragma once

#include "quick/bridge/ListBridge.h"
#include "quick/viewkit/ErrorBridge.h"
#include "quick/viewkit/PageBridge.h"
#include "rewards/gifticon/GifticonViewController.h"

namespace orrelo::quick {

class GifticonScreenBridge final : public orrelo::quick::PageBridge {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("")
  Q_PROPERTY(orrelo::quick::ListBridge* cells MEMBER cells CONSTANT)
  Q_PROPERTY(bool isLoading READ isLoading NOTIFY stateChanged)
  Q_PROPERTY(orrelo::quick::ErrorBridge* error MEMBER error CONSTANT)

 public:
  GifticonScreenBridge(const std::shared_ptr<GifticonViewController>& screen, QObject* parent);

  ListBridge* const cells;
  ErrorBridge* const error;

  bool isLoading() const { return gifticons_.state().isLoading; }

  Q_INVOKABLE void didSelect(int row) { gifticons_.didSelect(static_cast<std::size_t>(row)); }

 private:
  void updateCells();

  GifticonViewController& gifticons_;
};

}  // namespace orrelo::quick
