#pragma once

#include "quick/bridge/ScreenBridge.h"
#include "viewkit/CampaignRewardViewController.h"
#include "viewkit/legibility.h"

#include <QColor>

namespace orrelo::quick {

class RewardScreenBridge final : public orrelo::quick::ScreenBridge {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("")
  Q_PROPERTY(QString heading MEMBER heading CONSTANT)
  Q_PROPERTY(QString message MEMBER message CONSTANT)
  Q_PROPERTY(QString buttonText MEMBER buttonText CONSTANT)
  Q_PROPERTY(QColor headingColor MEMBER headingColor CONSTANT)
  Q_PROPERTY(QColor buttonColor MEMBER buttonColor CONSTANT)
  Q_PROPERTY(QColor buttonTextColor MEMBER buttonTextColor CONSTANT)
  Q_PROPERTY(QUrl closeAsset MEMBER closeAsset CONSTANT)

 public:
  RewardScreenBridge(const std::shared_ptr<CampaignRewardViewController>& screen, QObject* parent)
      : ScreenBridge(screen, parent),
        heading(toQt(screen->content.title)),
        message(toQt(screen->content.message)),
        buttonText(toQt(screen->content.buttonText)),
        headingColor(toQt(legibleOnWhite(screen->content.color))),
        buttonColor(toQt(screen->content.color)),
        buttonTextColor(toQt(textColorOn(screen->content.color))) {}

  const QString heading;
  const QString message;
  const QString buttonText;
  const QColor headingColor;
  const QColor buttonColor;
  const QColor buttonTextColor;
  const QUrl closeAsset = assetFile(CampaignRewardViewController::closeAsset);
};

}  // namespace orrelo::quick
