#pragma once

#include <orrelo/Export.h>
#include <orrelo/quick/ORLCampaignEntryView.h>

#include <memory>

namespace orrelo {
class CampaignFloatingActionButton;
}

namespace orrelo::quick {

/// A round button that opens the kit's home, with a tooltip beside it. The service defines its icon, its
/// colour and its message. In QML use `OrreloCampaignFloatingActionButton` of the module Orrelo:
///
///     import Orrelo
///     OrreloCampaignFloatingActionButton { anchors { right: parent.right; bottom: parent.bottom } }
///
/// The button lies at the right edge of its item, 16 points from it; its implicit size has room for the
/// tooltip, and the rest of it takes no input. It is invisible until the next call of `Orrelo::setUser` with
/// a user, even if one is signed in when it is created; otherwise it is an ORLCampaignEntryView with the name
/// "default_floating_action_button", and the same rules hold for threads, lifetime and visibility.
class ORRELO_EXPORT ORLCampaignFloatingActionButton : public orrelo::quick::ORLCampaignEntryView {
  Q_OBJECT

 public:
  explicit ORLCampaignFloatingActionButton(QQuickItem* parent = nullptr);
  ~ORLCampaignFloatingActionButton() override;

 protected:
  void itemChange(ItemChange change, const ItemChangeData& data) override;

 private:
  class Body;

  ORLCampaignFloatingActionButton(const std::shared_ptr<CampaignFloatingActionButton>& button,
                                  QQuickItem* parent);

  void makeLook();
  void followWindow();
  /// Takes the size of the look, which the window's width limits.
  void measure();

  const std::unique_ptr<Body> body_;
};

}  // namespace orrelo::quick
