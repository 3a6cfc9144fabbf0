#pragma once

#include "modular/content/TooltipInformationView.h"
#include "quick/viewkit/TooltipBridge.h"

#include <QUrl>

namespace orrelo::quick {

class TooltipInformationBridge final : public ViewBridge {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("")
  Q_PROPERTY(QString firstTitle READ firstTitle CONSTANT)
  Q_PROPERTY(QString secondTitle READ secondTitle CONSTANT)
  Q_PROPERTY(QString tooltipTitle READ tooltipTitle CONSTANT)
  /// True if a tap on the line shows a tooltip.
  Q_PROPERTY(bool hasMessage READ hasMessage CONSTANT)
  Q_PROPERTY(QUrl tooltipAsset READ tooltipAsset CONSTANT)
  Q_PROPERTY(double tooltipMaximumWidth READ tooltipMaximumWidth CONSTANT)
  Q_PROPERTY(double zPosition READ zPosition CONSTANT)
  Q_PROPERTY(double margin READ margin CONSTANT)
  Q_PROPERTY(double spacing READ spacing CONSTANT)
  Q_PROPERTY(orrelo::quick::TooltipBridge* tooltip READ tooltip CONSTANT)

 public:
  TooltipInformationBridge(const std::shared_ptr<TooltipInformationView>& view, QObject* parent)
      : ViewBridge(view, parent), information_(*view), tooltip_(new TooltipBridge(view->tooltipView, this)) {}

  QString firstTitle() const { return toQt(information_.firstTitle); }
  QString secondTitle() const { return toQt(information_.secondTitle); }
  QString tooltipTitle() const { return toQt(information_.tooltipTitle); }
  bool hasMessage() const { return !information_.guideMessage.empty(); }
  QUrl tooltipAsset() const { return assetFile(TooltipInformationView::tooltipAsset); }
  double tooltipMaximumWidth() const { return TooltipInformationView::tooltipMaximumWidth; }
  double zPosition() const { return TooltipInformationView::zPosition; }
  double margin() const { return InformationView::margins.left; }
  double spacing() const { return InformationView::spacingAfterSecondTitle; }
  TooltipBridge* tooltip() const { return tooltip_; }

  Q_INVOKABLE void tooltipTitleTapped() { information_.tooltipTitleTapped(); }

 private:
  TooltipInformationView& information_;
  TooltipBridge* const tooltip_;
};

}  // namespace orrelo::quick
