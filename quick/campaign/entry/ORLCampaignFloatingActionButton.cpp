#include "campaign/entry/CampaignFloatingActionButton.h"
#include "quick/bridge/engineOf.h"
#include "quick/bridge/explainUnloadable.h"
#include "quick/campaign/entry/CampaignFloatingActionButtonBridge.h"

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
  QMetaObject::Connection windowWidth;
};

ORLCampaignFloatingActionButton::ORLCampaignFloatingActionButton(QQuickItem* parent)
    : ORLCampaignFloatingActionButton(CampaignFloatingActionButton::create(), parent) {}

ORLCampaignFloatingActionButton::ORLCampaignFloatingActionButton(
    const std::shared_ptr<CampaignFloatingActionButton>& button, QQuickItem* parent)
    : ORLCampaignEntryView(button, parent),
      body_(std::make_unique<Body>(new CampaignFloatingActionButtonBridge(button, this))) {
  followWindow();
}

ORLCampaignFloatingActionButton::~ORLCampaignFloatingActionButton() {
  auto* const look = body_->look.data();
  if (look != nullptr && body_->bridge->isTapped()) {
    look->setParentItem(nullptr);
    body_->bridge->setParent(look);
    look->deleteLater();  // it is handling the tap
  } else {
    delete look;  // before the bridge that it draws
  }
}

void ORLCampaignFloatingActionButton::itemChange(ItemChange change, const ItemChangeData& data) {
  ORLCampaignEntryView::itemChange(change, data);
  if (change == ItemSceneChange) followWindow();
}

void ORLCampaignFloatingActionButton::followWindow() {
  disconnect(body_->windowWidth);
  if (window() == nullptr) return;
  if (!body_->look) makeLook();
  body_->windowWidth =
      connect(window(), &QQuickWindow::widthChanged, this, &ORLCampaignFloatingActionButton::measure);
  measure();
}

void ORLCampaignFloatingActionButton::measure() {
  if (!body_->look) return;
  const double width = body_->look->implicitWidth();
  setImplicitSize(window() != nullptr ? std::min<double>(width, window()->width()) : width,
                  body_->look->implicitHeight());
}

void ORLCampaignFloatingActionButton::makeLook() {
  QQmlComponent component(&engineOf(*this), body_->bridge->delegate());
  auto* const look = qobject_cast<QQuickItem*>(component.createWithInitialProperties(
      {{QStringLiteral("model"), QVariant::fromValue(body_->bridge)},
       {QStringLiteral("parent"), QVariant::fromValue<QQuickItem*>(this)}}));
  if (look == nullptr) {
    explainUnloadable(component);
    return;
  }
  QQmlEngine::setObjectOwnership(look, QQmlEngine::CppOwnership);
  body_->look = look;
  const auto fit = [this, look] { look->setSize(size()); };
  connect(this, &QQuickItem::widthChanged, look, fit);
  connect(this, &QQuickItem::heightChanged, look, fit);
  connect(look, &QQuickItem::implicitWidthChanged, this, &ORLCampaignFloatingActionButton::measure);
  connect(look, &QQuickItem::implicitHeightChanged, this, &ORLCampaignFloatingActionButton::measure);
  fit();
  setOwnView(look->property("button").value<QQuickItem*>());
}

}  // namespace orrelo::quick
