#pragma once

#include "campaign/optinmarketing/OptInMarketingCampaignView.h"
#include "quick/image/ImageBridge.h"
#include "quick/viewkit/CampaignNoticeBridge.h"
#include "quick/viewkit/ErrorBridge.h"
#include "viewkit/legibility.h"

#include <QColor>

namespace orrelo::quick {

class OptInMarketingCampaignBridge final : public orrelo::quick::ViewBridge {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("")
  Q_PROPERTY(QString buttonTitle MEMBER buttonTitle CONSTANT)
  Q_PROPERTY(bool isButtonEnabled MEMBER isButtonEnabled CONSTANT)
  Q_PROPERTY(bool isButtonHidden MEMBER isButtonHidden CONSTANT)
  Q_PROPERTY(QColor fill MEMBER fill CONSTANT)
  Q_PROPERTY(QColor textColor MEMBER textColor CONSTANT)
  Q_PROPERTY(orrelo::quick::ImageBridge* image MEMBER image CONSTANT)
  Q_PROPERTY(orrelo::quick::CampaignNoticeBridge* notice MEMBER notice CONSTANT)
  Q_PROPERTY(orrelo::quick::ErrorBridge* error MEMBER error CONSTANT)

 public:
  OptInMarketingCampaignBridge(const std::shared_ptr<OptInMarketingCampaignView>& view, QObject* parent)
      : ViewBridge(view, parent),
        buttonTitle(toQt(view->moveButton.title)),
        isButtonEnabled(view->moveButton.isEnabled),
        isButtonHidden(view->moveButton.isHidden),
        fill(toQt(buttonFill(view->moveButton.color, isButtonEnabled))),
        textColor(toQt(buttonTextColor(view->moveButton.color, isButtonEnabled))),
        image(new ImageBridge(view->imageView, this)),
        notice(new CampaignNoticeBridge(view->noticeView, this)),
        error(new ErrorBridge(view->errorView, this)),
        optIn_(*view) {}

  const QString buttonTitle;
  const bool isButtonEnabled;
  const bool isButtonHidden;
  const QColor fill;
  const QColor textColor;
  ImageBridge* const image;
  CampaignNoticeBridge* const notice;
  ErrorBridge* const error;

  Q_INVOKABLE void onTapMoveButton() { optIn_.onTapMoveButton(); }

 private:
  OptInMarketingCampaignView& optIn_;
};

}  // namespace orrelo::quick
