#pragma once

#include "campaign/list/CampaignViewCell.h"
#include "quick/image/ImageBridge.h"

#include <QUrl>

namespace orrelo::quick {

/// A campaign in a list.
class CampaignViewCellBridge final : public orrelo::quick::ViewBridge {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("")
  Q_PROPERTY(QString label MEMBER label CONSTANT)
  Q_PROPERTY(QString name MEMBER name CONSTANT)
  Q_PROPERTY(QString accessibilityLabel MEMBER accessibilityLabel CONSTANT)
  Q_PROPERTY(orrelo::quick::ImageBridge* icon MEMBER icon CONSTANT)
  Q_PROPERTY(double iconSize MEMBER iconSize CONSTANT)
  Q_PROPERTY(QUrl tapAsset MEMBER tapAsset CONSTANT)

 public:
  CampaignViewCellBridge(const std::shared_ptr<CampaignViewCell>& view, QObject* parent)
      : ViewBridge(view, parent),
        cell(view),
        label(toQt(view->campaignLabel)),
        name(toQt(view->campaignName)),
        accessibilityLabel(toQt(view->accessibilityLabel())),
        icon(new ImageBridge(view->iconImageView, this)) {}

  const std::shared_ptr<CampaignViewCell> cell;
  const QString label;
  const QString name;
  const QString accessibilityLabel;
  ImageBridge* const icon;
  const double iconSize = CampaignViewCell::iconSize;
  const QUrl tapAsset = assetFile(CampaignViewCell::tapAsset);
};

}  // namespace orrelo::quick
