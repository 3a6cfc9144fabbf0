#pragma once

#include "quick/bridge/ViewBridge.h"
#include "quick/image/ImageBridge.h"
#include "quick/viewkit/TooltipBridge.h"
#include "viewkit/CampaignInfoView.h"

#include <QUrl>

namespace orrelo::quick {

class CampaignInfoBridge final : public ViewBridge {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("")
  Q_PROPERTY(QString firstTitle READ firstTitle NOTIFY stateChanged)
  Q_PROPERTY(QString secondTitle READ secondTitle NOTIFY stateChanged)
  Q_PROPERTY(QString guideTitle READ guideTitle NOTIFY stateChanged)
  /// True if a tap on the guide line shows a tooltip.
  Q_PROPERTY(bool hasGuide READ hasGuide NOTIFY stateChanged)
  Q_PROPERTY(QUrl guideAsset READ guideAsset CONSTANT)
  Q_PROPERTY(orrelo::quick::TooltipBridge* tooltip READ tooltip CONSTANT)
  Q_PROPERTY(orrelo::quick::ImageBridge* image READ image CONSTANT)

 public:
  CampaignInfoBridge(const std::shared_ptr<CampaignInfoView>& view, QObject* parent)
      : ViewBridge(view, parent),
        info_(*view),
        tooltip_(new TooltipBridge(view->tooltipView, this)),
        image_(new ImageBridge(view->imageView, this)) {
    follow(info_.state);
  }

  QString firstTitle() const { return toQt(info_.state.value().firstTitle); }
  QString secondTitle() const { return toQt(info_.state.value().secondTitle); }
  QString guideTitle() const { return toQt(info_.state.value().guideTitle); }
  bool hasGuide() const { return !info_.state.value().guideMessage.empty(); }
  QUrl guideAsset() const { return assetFile(CampaignInfoView::guideAsset); }
  TooltipBridge* tooltip() const { return tooltip_; }
  ImageBridge* image() const { return image_; }

  Q_INVOKABLE void guideLabelTapped() { info_.guideLabelTapped(); }

 private:
  CampaignInfoView& info_;
  TooltipBridge* const tooltip_;
  ImageBridge* const image_;
};

}  // namespace orrelo::quick
