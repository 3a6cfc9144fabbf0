#pragma once

#include <orrelo/quick/ORLCampaignEntryView.h>

#include <QPointer>
#include <QtQml/qqmlregistration.h>

namespace orrelo::quick {

/// The entry view of OrreloCampaignEntryView.qml: all items in `content` are clickable.
class CampaignEntryItem : public orrelo::quick::ORLCampaignEntryView {
  Q_OBJECT
  QML_ELEMENT
  /// Set once.
  Q_PROPERTY(QQuickItem* content READ content WRITE setContent NOTIFY contentChanged REQUIRED)

 public:
  using ORLCampaignEntryView::ORLCampaignEntryView;

  QQuickItem* content() const { return content_; }
  void setContent(QQuickItem* content);

 Q_SIGNALS:
  void contentChanged();

 private:
  void takeItems();

  QPointer<QQuickItem> content_;
};

}  // namespace orrelo::quick
