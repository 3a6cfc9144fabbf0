#pragma once

#include "quick/bridge/ViewBridge.h"
#include "quick/image/ImageBridge.h"
#include "quick/viewkit/TooltipBridge.h"
#include "viewkit/CampaignInfoView.h"

#include <QUrl>

namespace orrelo::quick {

class CampaignInfoBridge final : public orrelo::quick::ViewBridge {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("")
  Q_PROPERTY(QString firstTitle READ firstTitle NOTIFY stateChanged)
  Q_PROPERTY(QString secondTitle READ secondTitle NOTIFY stateChanged)
  Q_PROPERTY(QString guideTitle READ guideTitle NOTIFY stateChanged)
  /// True if a tap on the guide line shows a tooltip.
  Q_PROPERTY(bool hasGuide READ hasGuide NOTIFY stateChanged)
  Q_PROPERTY(QUrl guideAsset MEMBER guideAsset CONSTANT)
  Q_PROPERTY(orrelo::quick::TooltipBridge* tooltip MEMBER tooltip CONSTANT)
  Q_PROPERTY(orrelo::quick::ImageBridge* image MEMBER image CONSTANT)

 public:
  CampaignInfoBridge(const std::shared_ptr<CampaignInfoView>& view, QObject* parent)
      : ViewBridge(view, parent),
        tooltip(new TooltipBridge(view->tooltipView, this)),
        image(new ImageBridge(view->imageView, this)),
        info_(*view) {
    follow(info_.state);
  }

  const QUrl guideAsset = assetFile(CampaignInfoView::guideAsset);
  TooltipBridge* const tooltip;
  ImageBridge* const image;

  QString firstTitle() const { return toQt(info_.state.value().firstTitle); }
  QString secondTitle() const { return toQt(info_.state.value().secondTitle); }
  QString guideTitle() const { return toQt(info_.state.value().guideTitle); }
  bool hasGuide() const { return !info_.state.value().guideMessage.empty(); }

  Q_INVOKABLE void guideLabelTapped() { info_.guideLabelTapped(); }

 private:
  CampaignInfoView& info_;
};

}  // namespace orrelo::quick
