#pragma once

#include "quick/bridge/ViewBridge.h"
#include "viewkit/IconRectangleButton.h"
#include "viewkit/legibility.h"

#include <QColor>
#include <QUrl>

namespace orrelo::quick {

class IconRectangleButtonBridge final : public orrelo::quick::ViewBridge {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("")
  Q_PROPERTY(QUrl asset MEMBER asset CONSTANT)
  Q_PROPERTY(QString title MEMBER title CONSTANT)
  Q_PROPERTY(bool isHidden READ isHidden NOTIFY stateChanged)
  /// Empty if there is no badge.
  Q_PROPERTY(QString badgeText READ badgeText NOTIFY stateChanged)
  Q_PROPERTY(QColor badgeColor READ badgeColor NOTIFY stateChanged)
  Q_PROPERTY(QColor badgeTextColor READ badgeTextColor NOTIFY stateChanged)

 public:
  IconRectangleButtonBridge(const std::shared_ptr<IconRectangleButton>& view, QObject* parent)
      : ViewBridge(view, parent), asset(assetFile(view->asset)), title(toQt(view->title)), button_(*view) {
    follow(button_.state);
  }

  const QUrl asset;
  const QString title;

  bool isHidden() const { return button_.state.value().isHidden; }
  QString badgeText() const { return toQt(button_.state.value().badgeText); }
  QColor badgeColor() const { return toQt(button_.state.value().badgeColor); }
  QColor badgeTextColor() const { return toQt(textColorOn(button_.state.value().badgeColor)); }

 private:
  const IconRectangleButton& button_;
};

}  // namespace orrelo::quick
