#include "quick/campaign/entry/ClickableView.h"

#include "campaign/entry/CampaignFloatingActionButton.h"
#include "quick/bridge/Conversions.h"
#include "quick/bridge/engineOf.h"
#include "quick/bridge/explainUnloadable.h"

#include <QAccessible>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QQuickWindow>
#include <QStringList>
#include <utility>

namespace orrelo::quick {
namespace {

QString ownName(QQuickItem* item) {
  auto* const accessible = QAccessible::queryAccessibleInterface(item);
  const auto name = accessible != nullptr ? accessible->text(QAccessible::Name) : QString();
  return name.isEmpty() && item->inherits("QQuickText") ? item->property("text").toString() : name;
}

// Collects the texts in the item, each of which is an item of its own.
void collectTexts(QQuickItem* item, QList<QQuickItem*>& texts) {
  if (item->inherits("QQuickText")) texts.push_back(item);
  const auto children = item->childItems();
  for (auto* const child : children) collectTexts(child, texts);
}

// The name of the item, or else those of the visible items in it.
void collectNames(QQuickItem* item, const QQuickItem* area, QStringList& names) {
  if (item == area || !item->isVisible()) return;
  if (const auto name = ownName(item); !name.isEmpty()) return names.push_back(name);
  const auto children = item->childItems();
  for (auto* const child : children) collectNames(child, area, names);
}

}  // namespace

ClickableView::ClickableView(QQuickItem& view, OnTap onTap) : view_(&view), onTap_(std::move(onTap)) {
  connect(&view, &QObject::destroyed, this, &ClickableView::gone);
  connect(&view, &QQuickItem::windowChanged, this,
          [this](const QQuickWindow* window) { window != nullptr ? makeArea() : gone(); });
  if (view.window() != nullptr) makeArea();
}

ClickableView::~ClickableView() {
  if (isTapped_ && area_) {
    area_->setParentItem(nullptr);
    area_->deleteLater();  // it is handling the tap
  } else {
    delete area_;
  }
}

void ClickableView::letGo(std::unique_ptr<ClickableView> view, QObject* owner) {
  if (!view->isTapped_) return;
  if (view->area_) view->area_->setParentItem(nullptr);
  view->setParent(owner);
  view.release()->deleteLater();
}

void ClickableView::makeArea() {
  if (area_) return;
  QQmlComponent component(&engineOf(*view_), moduleFile(QStringLiteral("ClickArea.qml")));
  area_ = qobject_cast<QQuickItem*>(
      component.createWithInitialProperties({{QStringLiteral("model"), QVariant::fromValue(this)}}));
  if (!area_) {
    explainUnloadable(component);
    return;
  }
  QQmlEngine::setObjectOwnership(area_, QQmlEngine::CppOwnership);
  area_->setParentItem(view_);
  // Texts that the host's bindings have not made or set yet are there when the event loop runs.
  QMetaObject::invokeMethod(this, &ClickableView::followTexts, Qt::QueuedConnection);
}

void ClickableView::followTexts() {
  if (!view_) return;
  QList<QQuickItem*> texts;
  collectTexts(view_, texts);
  for (auto* const text : std::as_const(texts)) {
    connect(text, SIGNAL(textChanged(QString)), this, SIGNAL(nameChanged()), Qt::UniqueConnection);
    connect(text, &QQuickItem::visibleChanged, this, &ClickableView::nameChanged, Qt::UniqueConnection);
  }
  Q_EMIT nameChanged();
}

QString ClickableView::name() const {
  QStringList names;
  if (view_) collectNames(view_, area_, names);
  return names.isEmpty() ? toQt(CampaignFloatingActionButton::accessibilityLabel)
                         : names.join(QStringLiteral(", "));
}

void ClickableView::setEnabled(bool isEnabled) {
  if (isEnabled == isEnabled_) return;
  isEnabled_ = isEnabled;
  followTexts();  // there may be others meanwhile
  Q_EMIT isEnabledChanged();
}

void ClickableView::tap() {
  const QPointer<ClickableView> self(this);
  const auto onTap = onTap_;
  isTapped_ = true;
  onTap();
  if (self) isTapped_ = false;
}

}  // namespace orrelo::quick

#include "moc_ClickableView.cpp"
