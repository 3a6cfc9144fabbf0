#pragma once

#include "quick/bridge/ScreenBridge.h"
#include "viewkit/ShareSheetViewController.h"

namespace orrelo::quick {

class ShareSheetScreenBridge final : public orrelo::quick::ScreenBridge {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("")
  Q_PROPERTY(QString heading MEMBER heading CONSTANT)
  Q_PROPERTY(QString text MEMBER text CONSTANT)
  Q_PROPERTY(QString copyTitle MEMBER copyTitle CONSTANT)
  Q_PROPERTY(QString mailTitle MEMBER mailTitle CONSTANT)
  Q_PROPERTY(QUrl copyAsset MEMBER copyAsset CONSTANT)
  Q_PROPERTY(QUrl mailAsset MEMBER mailAsset CONSTANT)
  Q_PROPERTY(QUrl closeAsset MEMBER closeAsset CONSTANT)

 public:
  ShareSheetScreenBridge(const std::shared_ptr<ShareSheetViewController>& screen, QObject* parent)
      : ScreenBridge(screen, parent), text(toQt(screen->text)), sheet_(*screen) {}

  const QString heading = toQt(ShareSheetViewController::heading);
  const QString text;
  const QString copyTitle = toQt(ShareSheetViewController::copyTitle);
  const QString mailTitle = toQt(ShareSheetViewController::mailTitle);
  const QUrl copyAsset = assetFile(ShareSheetViewController::copyAsset);
  const QUrl mailAsset = assetFile(ShareSheetViewController::mailAsset);
  const QUrl closeAsset = assetFile(ShareSheetViewController::closeAsset);

  Q_INVOKABLE void copy() { sheet_.copy(); }
  Q_INVOKABLE void mail() { sheet_.mail(); }

 private:
  ShareSheetViewController& sheet_;
};

}  // namespace orrelo::quick
