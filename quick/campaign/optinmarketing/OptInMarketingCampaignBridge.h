#pragma once

#include "campaign/optinmarketing/OptInMarketingCampaignView.h"
#include "quick/image/ImageBridge.h"
#include "quick/viewkit/CampaignNoticeBridge.h"
#include "quick/viewkit/ErrorBridge.h"
#include "viewkit/legibility.h"

#include <QColor>

namespace orrelo::quick {

class OptInMarketingCampaignBridge final : public ViewBridge {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("")
  Q_PROPERTY(QString buttonTitle READ buttonTitle CONSTANT)
  Q_PROPERTY(bool isButtonEnabled READ isButtonEnabled CONSTANT)
  Q_PROPERTY(bool isButtonHidden READ isButtonHidden CONSTANT)
  Q_PROPERTY(QColor fill READ fill CONSTANT)
  Q_PROPERTY(QColor textColor READ textColor CONSTANT)
  Q_PROPERTY(orrelo::quick::ImageBridge* image READ image CONSTANT)
  Q_PROPERTY(orrelo::quick::CampaignNoticeBridge* notice READ notice CONSTANT)
  Q_PROPERTY(orrelo::quick::ErrorBridge* error READ error CONSTANT)

 public:
  OptInMarketingCampaignBridge(const std::shared_ptr<OptInMarketingCampaignView>& view, QObject* parent)
      : ViewBridge(view, parent),
        optIn_(*view),
        image_(new ImageBridge(view->imageView, this)),
        notice_(new CampaignNoticeBridge(view->noticeView, this)),
        error_(new ErrorBridge(view->errorView, this)) {}

  QString buttonTitle() const { return toQt(optIn_.moveButton.title); }
  bool isButtonEnabled() const { return optIn_.moveButton.isEnabled; }
  bool isButtonHidden() const { return optIn_.moveButton.isHidden; }
  QColor fill() const { return toQt(buttonFill(optIn_.moveButton.color, isButtonEnabled())); }
  QColor textColor() const { return toQt(buttonTextColor(optIn_.moveButton.color, isButtonEnabled())); }
  ImageBridge* image() const { return image_; }
  CampaignNoticeBridge* notice() const { return notice_; }
  ErrorBridge* error() const { return error_; }

  Q_INVOKABLE void onTapMoveButton() { optIn_.onTapMoveButton(); }

 private:
  OptInMarketingCampaignView& optIn_;
  ImageBridge* const image_;
  CampaignNoticeBridge* const notice_;
  ErrorBridge* const error_;
};

}  // namespace orrelo::quick
