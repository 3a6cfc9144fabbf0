#include "campaign/entry/CampaignFloatingActionButton.h"
#include "quick/campaign/entry/CampaignFloatingActionButtonBridge.h"
#include "quick/campaign/entry/ClickableView.h"
#include "quick/campaign/entry/engineOf.h"

#include <orrelo/quick/ORLCampaignFloatingActionButton.h>

#include <QPointer>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QQuickWindow>
#include <algorithm>

namespace orrelo::quick {

class ORLCampaignFloatingActionButton::Body {
 public:
  explicit Body(CampaignFloatingActionButtonBridge* view) : bridge(view) {}

  CampaignFloatingActionButtonBridge* const bridge;
  QPointer<QQuickItem> look;
};

ORLCampaignFloatingActionButton::ORLCampaignFloatingActionButton(QQuickItem* parent)
    : ORLCampaignFloatingActionButton(CampaignFloatingActionButton::create(), parent) {}

ORLCampaignFloatingActionButton::ORLCampaignFloatingActionButton(
    const std::shared_ptr<CampaignFloatingActionButton>& button, QQuickItem* parent)
    : ORLCampaignEntryView(button, parent),
      body_(std::make_unique<Body>(new CampaignFloatingActionButtonBridge(button, this))) {
  if (window() != nullptr) makeLook();
}

ORLCampaignFloatingActionButton::~ORLCampaignFloatingActionButton() {
  delete body_->look;  // before the bridge that it draws
}

void ORLCampaignFloatingActionButton::itemChange(ItemChange change, const ItemChangeData& data) {
  ORLCampaignEntryView::itemChange(change, data);
  if (change == ItemSceneChange && data.window != nullptr) makeLook();
}

void ORLCampaignFloatingActionButton::makeLook() {
  if (body_->look) return;
  QQmlComponent component(&engineOf(*this), body_->bridge->delegate());
  auto* const look = qobject_cast<QQuickItem*>(component.createWithInitialProperties(
      {{QStringLiteral("model"), QVariant::fromValue(body_->bridge)},
       {QStringLiteral("parent"), QVariant::fromValue<QQuickItem*>(this)}}));
  QQmlEngine::setObjectOwnership(look, QQmlEngine::CppOwnership);
  body_->look = look;
  const auto fit = [this, look] { look->setSize(size()); };
  const auto measure = [this, look] {
    const double room = window() != nullptr ? window()->width() : look->implicitWidth();
    setImplicitSize(std::min(look->implicitWidth(), room), look->implicitHeight());
  };
  connect(this, &QQuickItem::widthChanged, look, fit);
  connect(this, &QQuickItem::heightChanged, look, fit);
  connect(look, &QQuickItem::implicitWidthChanged, this, measure);
  connect(look, &QQuickItem::implicitHeightChanged, this, measure);
  connect(window(), &QQuickWindow::widthChanged, this, measure);
  measure();
  fit();
  addClickableView(std::make_unique<ClickableView>(*look->property("button").value<QQuickItem*>()));
}

}  // namespace orrelo::quick
