#pragma once

#include "quick/bridge/ScreenBridge.h"
#include "viewkit/CampaignRewardViewController.h"
#include "viewkit/legibility.h"

#include <QColor>

namespace orrelo::quick {

class RewardScreenBridge final : public ScreenBridge {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("")
  Q_PROPERTY(QString heading READ heading CONSTANT)
  Q_PROPERTY(QString message READ message CONSTANT)
  Q_PROPERTY(QString buttonText READ buttonText CONSTANT)
  Q_PROPERTY(QColor headingColor READ headingColor CONSTANT)
  Q_PROPERTY(QColor buttonColor READ buttonColor CONSTANT)
  Q_PROPERTY(QColor buttonTextColor READ buttonTextColor CONSTANT)
  Q_PROPERTY(QUrl closeAsset READ closeAsset CONSTANT)

 public:
  RewardScreenBridge(const std::shared_ptr<CampaignRewardViewController>& screen, QObject* parent)
      : ScreenBridge(screen, parent), reward_(*screen) {}

  QString heading() const { return toQt(reward_.content.title); }
  QString message() const { return toQt(reward_.content.message); }
  QString buttonText() const { return toQt(reward_.content.buttonText); }
  QColor headingColor() const { return toQt(legibleOnWhite(reward_.content.color)); }
  QColor buttonColor() const { return toQt(reward_.content.color); }
  QColor buttonTextColor() const { return toQt(textColorOn(reward_.content.color)); }
  QUrl closeAsset() const { return assetFile(CampaignRewardViewController::closeAsset); }

 private:
  CampaignRewardViewController& reward_;
};

}  // namespace orrelo::quick
