#pragma once

#include "modular/content/TooltipInformationView.h"
#include "quick/viewkit/TooltipBridge.h"
#include "quick/viewkit/blockHeights.h"

#include <QUrl>

namespace orrelo::quick {

class TooltipInformationBridge final : public orrelo::quick::ViewBridge {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("")
  Q_PROPERTY(QString firstTitle MEMBER firstTitle CONSTANT)
  Q_PROPERTY(QString secondTitle MEMBER secondTitle CONSTANT)
  Q_PROPERTY(QString tooltipTitle MEMBER tooltipTitle CONSTANT)
  /// True if a tap on the line shows a tooltip.
  Q_PROPERTY(bool hasMessage MEMBER hasMessage CONSTANT)
  Q_PROPERTY(QUrl tooltipAsset MEMBER tooltipAsset CONSTANT)
  Q_PROPERTY(orrelo::quick::TooltipBridge* tooltip MEMBER tooltip CONSTANT)

 public:
  TooltipInformationBridge(const std::shared_ptr<TooltipInformationView>& view, QObject* parent)
      : ViewBridge(view, parent),
        firstTitle(toQt(view->firstTitle)),
        secondTitle(toQt(view->secondTitle)),
        tooltipTitle(toQt(view->tooltipTitle)),
        hasMessage(!view->guideMessage.empty()),
        tooltip(new TooltipBridge(view->tooltipView, this)),
        information_(*view) {}

  const QString firstTitle;
  const QString secondTitle;
  const QString tooltipTitle;
  const bool hasMessage;
  const QUrl tooltipAsset = assetFile(TooltipInformationView::tooltipAsset);
  TooltipBridge* const tooltip;

  Q_INVOKABLE void tooltipTitleTapped() { information_.tooltipTitleTapped(); }

 protected:
  // The layout of TooltipInformationView.qml.
  double measuredHeight(double width, const TextMeasure& measure) const override {
    const double inner = width - 2 * blockMargin;
    return titleRowsHeight(firstTitle, secondTitle, inner, measure) +
           guideLineHeight(tooltipTitle, 16.0, inner, measure);
  }

 private:
  TooltipInformationView& information_;
};

}  // namespace orrelo::quick
