#include "campaign/entry/CampaignEntryView.h"
#include "quick/bridge/AnimationValue.h"
#include "quick/bridge/Conversions.h"
#include "quick/bridge/Subscriptions.h"
#include "quick/campaign/entry/ClickableView.h"

#include <orrelo/quick/ORLCampaignEntryView.h>
#include <orrelo/quick/OrreloQuick.h>

#include <QEasingCurve>
#include <QPointer>
#include <QVariantAnimation>
#include <algorithm>
#include <utility>
#include <vector>

namespace orrelo::quick {

class ORLCampaignEntryView::Body {
 public:
  explicit Body(std::shared_ptr<CampaignEntryView> view) : entry(std::move(view)) {}

  bool isShown() const { return entry->state().alpha > 0.0; }

  const std::shared_ptr<CampaignEntryView> entry;
  std::vector<std::unique_ptr<ClickableView>> views;
  /// An item that takes its input itself.
  QPointer<QQuickItem> ownView;
  QVariantAnimation fade;
  Subscriptions subscriptions;
};

ORLCampaignEntryView::ORLCampaignEntryView(QQuickItem* parent)
    : ORLCampaignEntryView(CampaignEntryView::create(), parent) {}

ORLCampaignEntryView::ORLCampaignEntryView(std::shared_ptr<CampaignEntryView> entry, QQuickItem* parent)
    : QQuickItem(parent), body_(std::make_unique<Body>(std::move(entry))) {
  connect(&body_->fade, &QVariantAnimation::valueChanged, this,
          [this](const QVariant& value) { setOpacity(value.toDouble()); });
  connect(&body_->fade, &QVariantAnimation::finished, this, &ORLCampaignEntryView::endFade);
  body_->subscriptions.follow(body_->entry->stateChanges(), [this] { show(); });
}

ORLCampaignEntryView::~ORLCampaignEntryView() = default;

void ORLCampaignEntryView::show() {
  const auto& state = body_->entry->state();
  auto& fade = body_->fade;
  fade.stop();
  setEnabled(body_->isShown());
  for (const auto& view : body_->views) view->setEnabled(body_->isShown());
  if (!state.fade) {
    setOpacity(state.alpha);
    return endFade();
  }
  setVisible(true);
  const AnimationValue motion(*state.fade);
  QEasingCurve curve(QEasingCurve::BezierSpline);
  curve.addCubicBezierSegment({motion.curve[0], motion.curve[1]}, {motion.curve[2], motion.curve[3]},
                              {1.0, 1.0});
  fade.setEasingCurve(curve);
  fade.setDuration(motion.duration);
  fade.setStartValue(opacity());  // continues a fade that was interrupted
  fade.setEndValue(motion.to);
  fade.start();
}

void ORLCampaignEntryView::endFade() {
  setVisible(body_->isShown());
}

QString ORLCampaignEntryView::entryName() const {
  return toQt(body_->entry->entryName.value_or(""));
}

void ORLCampaignEntryView::setEntryName(const QString& name) {
  if (name == entryName()) return;
  body_->entry->entryName = name.isEmpty() ? std::nullopt : std::optional(name.toStdString());
  Q_EMIT entryNameChanged();
}

QList<QQuickItem*> ORLCampaignEntryView::clickableViews() const {
  QList<QQuickItem*> views;
  if (body_->ownView) views.push_back(body_->ownView);
  for (const auto& view : body_->views) views.push_back(view->view());
  return views;
}

void ORLCampaignEntryView::setClickableViews(const QList<QQuickItem*>& views) {
  for (auto& former : std::exchange(body_->views, {})) {
    if (views.contains(former->view())) {
      body_->views.push_back(std::move(former));
    } else {
      ClickableView::letGo(std::move(former), this);
    }
  }
  for (auto* const view : views) {
    if (view == nullptr || clickableViews().contains(view)) continue;
    // The tap keeps the entry alive, since the host's delegate may delete this item.
    addClickableView(std::make_unique<ClickableView>(*view, [entry = body_->entry, view] {
      entry->orlHandleTapGesture(hostViewController(view->window())->root());
    }));
  }
}

void ORLCampaignEntryView::setOwnView(QQuickItem* view) {
  body_->ownView = view;
}

void ORLCampaignEntryView::addClickableView(std::unique_ptr<ClickableView> view) {
  view->setEnabled(body_->isShown());
  connect(view.get(), &ClickableView::gone, this, [this, gone = view.get()] {
    const auto found = std::find_if(body_->views.begin(), body_->views.end(),
                                    [gone](const auto& each) { return each.get() == gone; });
    if (found == body_->views.end()) return;
    found->release()->deleteLater();  // it is emitting the signal
    body_->views.erase(found);
  });
  body_->views.push_back(std::move(view));
}

}  // namespace orrelo::quick
