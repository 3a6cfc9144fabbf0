#pragma once

#include "campaign/result/CampaignResultView.h"
#include "quick/image/ImageBridge.h"
#include "quick/viewkit/CampaignNoticeBridge.h"

namespace orrelo::quick {

class CampaignResultBridge final : public orrelo::quick::ViewBridge {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("")
  Q_PROPERTY(QString body MEMBER body CONSTANT)
  Q_PROPERTY(QString name MEMBER name CONSTANT)
  Q_PROPERTY(QString label MEMBER label CONSTANT)
  Q_PROPERTY(orrelo::quick::ImageBridge* image MEMBER image CONSTANT)
  Q_PROPERTY(orrelo::quick::CampaignNoticeBridge* notice MEMBER notice CONSTANT)

 public:
  CampaignResultBridge(const std::shared_ptr<CampaignResultView>& view, QObject* parent)
      : ViewBridge(view, parent),
        body(toQt(view->body)),
        name(toQt(view->name)),
        label(toQt(view->label)),
        image(new ImageBridge(view->imageView, this)),
        notice(new CampaignNoticeBridge(view->noticeView, this)) {}

  const QString body;
  const QString name;
  const QString label;
  ImageBridge* const image;
  CampaignNoticeBridge* const notice;
};

}  // namespace orrelo::quick
