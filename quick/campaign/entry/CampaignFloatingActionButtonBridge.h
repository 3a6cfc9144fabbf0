#pragma once

#include "campaign/entry/CampaignFloatingActionButton.h"
#include "quick/image/ImageBridge.h"
#include "quick/viewkit/TooltipBridge.h"

#include <orrelo/quick/OrreloQuick.h>

#include <QColor>
#include <QPointer>
#include <QQuickItem>
#include <QUrl>

namespace orrelo::quick {

class CampaignFloatingActionButtonBridge final : public orrelo::quick::ViewBridge {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("")
  Q_PROPERTY(QString name MEMBER name CONSTANT)
  Q_PROPERTY(QColor color READ color NOTIFY stateChanged)
  Q_PROPERTY(QUrl placeholder MEMBER placeholder CONSTANT)
  Q_PROPERTY(orrelo::quick::ImageBridge* icon MEMBER icon CONSTANT)
  Q_PROPERTY(orrelo::quick::TooltipBridge* tooltip MEMBER tooltip CONSTANT)
  Q_PROPERTY(double inset MEMBER inset CONSTANT)
  Q_PROPERTY(double maximumTooltipWidth MEMBER maximumTooltipWidth CONSTANT)

 public:
  CampaignFloatingActionButtonBridge(const std::shared_ptr<CampaignFloatingActionButton>& view,
                                     QObject* parent)
      : ViewBridge(view, parent),
        icon(new ImageBridge(view->iconImageView, this)),
        tooltip(new TooltipBridge(view->tooltipView, this)),
        button_(*view) {
    follow(button_.color);
  }

  const QString name = toQt(CampaignFloatingActionButton::accessibilityLabel);
  const QUrl placeholder = assetFile(CampaignFloatingActionButton::placeholderAsset);
  ImageBridge* const icon;
  TooltipBridge* const tooltip;
  const double inset = CampaignFloatingActionButton::inset;
  const double maximumTooltipWidth = CampaignFloatingActionButton::maximumTooltipWidth;

  QColor color() const { return toQt(button_.color.value()); }

  /// True during a tap.
  bool isTapped() const { return isTapped_; }

  /// Called for a tap on `item`, the button. The host's delegate may delete the button's item meanwhile.
  Q_INVOKABLE void tap(QQuickItem* item) {
    const auto keep = view();
    const QPointer<CampaignFloatingActionButtonBridge> self(this);
    isTapped_ = true;
    button_.orlHandleTapGesture(hostViewController(item->window())->root());
    if (self) isTapped_ = false;
  }
  Q_INVOKABLE void tooltipDidFade() { button_.tooltipDidFade(); }

 private:
  CampaignFloatingActionButton& button_;
  bool isTapped_ = false;
};

}  // namespace orrelo::quick
