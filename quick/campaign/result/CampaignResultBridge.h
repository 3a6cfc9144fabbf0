#pragma once

#include "campaign/result/CampaignResultView.h"
#include "quick/image/ImageBridge.h"
#include "quick/viewkit/CampaignNoticeBridge.h"

namespace orrelo::quick {

class CampaignResultBridge final : public ViewBridge {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("")
  Q_PROPERTY(QString body READ body CONSTANT)
  Q_PROPERTY(QString name READ name CONSTANT)
  Q_PROPERTY(QString label READ label CONSTANT)
  Q_PROPERTY(orrelo::quick::ImageBridge* image READ image CONSTANT)
  Q_PROPERTY(orrelo::quick::CampaignNoticeBridge* notice READ notice CONSTANT)

 public:
  CampaignResultBridge(const std::shared_ptr<CampaignResultView>& view, QObject* parent)
      : ViewBridge(view, parent),
        result_(*view),
        image_(new ImageBridge(view->imageView, this)),
        notice_(new CampaignNoticeBridge(view->noticeView, this)) {}

  QString body() const { return toQt(result_.body); }
  QString name() const { return toQt(result_.name); }
  QString label() const { return toQt(result_.label); }
  ImageBridge* image() const { return image_; }
  CampaignNoticeBridge* notice() const { return notice_; }

 private:
  const CampaignResultView& result_;
  ImageBridge* const image_;
  CampaignNoticeBridge* const notice_;
};

}  // namespace orrelo::quick
