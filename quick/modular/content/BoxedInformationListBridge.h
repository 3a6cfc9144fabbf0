#pragma once

#include "modular/content/BoxedInformationListView.h"
#include "quick/modular/content/InformationBoxBridge.h"

#include <QVariantList>

namespace orrelo::quick {

class BoxedInformationListBridge final : public ViewBridge {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("")
  Q_PROPERTY(QString title READ title CONSTANT)
  Q_PROPERTY(QVariantList boxes READ boxes CONSTANT)
  Q_PROPERTY(double margin READ margin CONSTANT)
  Q_PROPERTY(double spacing READ spacing CONSTANT)

 public:
  BoxedInformationListBridge(const std::shared_ptr<BoxedInformationListView>& view, QObject* parent)
      : ViewBridge(view, parent), list_(*view) {
    for (const auto& box : list_.boxes) {
      boxes_.push_back(QVariant::fromValue(new InformationBoxBridge(box, this)));
    }
  }

  QString title() const { return toQt(list_.title); }
  QVariantList boxes() const { return boxes_; }
  double margin() const { return BoxedInformationListView::margins.left; }
  double spacing() const { return BoxedInformationListView::spacing; }

 private:
  const BoxedInformationListView& list_;
  QVariantList boxes_;
};

}  // namespace orrelo::quick
