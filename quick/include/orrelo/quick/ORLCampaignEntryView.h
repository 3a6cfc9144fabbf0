#pragma once

#include <orrelo/Export.h>

#include <QList>
#include <QQuickItem>
#include <QString>
#include <memory>

namespace orrelo {
class CampaignEntryView;
}

namespace orrelo::quick {

class ClickableView;

/// An entry to the kit's home on the host's own pages. In QML use `OrreloCampaignEntryView` of the module
/// Orrelo, which makes the items in it pressable:
///
///     import Orrelo
///     OrreloCampaignEntryView { entryName: "my page"; Image { source: "gift.png" } }
///
/// The same in C++, for items that exist already:
///
///     auto* const entry = new orrelo::quick::ORLCampaignEntryView(page);
///     entry->setEntryName("my page");
///     entry->setClickableViews({banner});
///
/// The view is visible while a user is signed in: from its creation if there is one then, and later it fades
/// in and out as `Orrelo::setUser` is called, or changes at once if the user prefers reduced motion. While it
/// is invisible its views take no taps and no focus, and assistive technology does not find them. The view
/// sets its own `opacity`, `visible` and `enabled`; to hide it yourself, put it into an item of yours. A tap
/// opens home over the topmost screen of the view's window.
///
/// Create it after `Orrelo::initialize`. A view that is created before stays invisible, and an error is
/// logged. GUI thread only. The view belongs to its parent like any other item.
class ORRELO_EXPORT ORLCampaignEntryView : public QQuickItem {
  Q_OBJECT
  /// The name of this view in the events "ol_campaign_entry_point_show" and "ol_campaign_entry_point_click".
  /// The view reports no events while it is empty.
  Q_PROPERTY(QString entryName READ entryName WRITE setEntryName NOTIFY entryNameChanged)

 public:
  explicit ORLCampaignEntryView(QQuickItem* parent = nullptr);
  ~ORLCampaignEntryView() override;

  QString entryName() const;
  void setEntryName(const QString& name);

  /// The items that open home.
  QList<QQuickItem*> clickableViews() const;
  /// Makes the items pressable by touch, mouse, keyboard and assistive technology, and leaves former ones as
  /// they were. An item stays where it is and belongs to its owner; one that is destroyed or leaves its scene
  /// is let go. Its accessible name is that of the texts in it. It takes no input while it has no area.
  void setClickableViews(const QList<QQuickItem*>& views);

 Q_SIGNALS:
  void entryNameChanged();

 protected:
  /// For the kit's own entry views.
  ORLCampaignEntryView(std::shared_ptr<CampaignEntryView> entry, QQuickItem* parent);

  /// An item that opens home by itself, the first of `clickableViews`.
  void setOwnView(QQuickItem* view);

 private:
  class Body;

  void addClickableView(std::unique_ptr<ClickableView> view);
  void show();
  void endFade();

  const std::unique_ptr<Body> body_;
};

}  // namespace orrelo::quick
