#pragma once

#include "base/Color.h"
#include "reactive/Disposable.h"
#include "rewards/externalpoint/ExternalPointEntryViewModel.h"
#include "ui/View.h"
#include "ui/ViewController.h"

#include <orrelo/Export.h>

#include <memory>
#include <optional>
#include <string>

namespace orrelo {

/// A view for a host's own layout that leads to the exchange. It takes no room unless the configuration
/// enables the exchange. Main thread.
class ORRELO_EXPORT ExternalPointEntryView final : public View {
 public:
  struct State {
    bool isHidden = true;
    std::string guideMessage;
    /// The text of the label that invites to the exchange, on a ground in the host's colour.
    std::string exchangeLabel;
    Color exchangeColor;
    Color exchangeTextColor;
    std::optional<std::string> landingUrl;

    friend bool operator==(const State&, const State&) = default;
  };

  ExternalPointEntryView();
  ~ExternalPointEntryView() override;

  static constexpr std::string_view kindName = "ExternalPointEntryView";
  std::string_view kind() const override { return kindName; }

  Followed<State> state;

  /// Asks the running kit for the configuration, the first time that there is one. Called when the view comes
  /// into a window.
  void didMoveToWindow();
  /// Presents the exchange from the screen that contains the view, which may be null, and reports the tap.
  /// Does nothing while there is no landing URL.
  void navigate(const std::shared_ptr<ViewController>& nearest) const;

 private:
  void show(const ExternalPointEntryViewModel::ViewState& viewState);

  std::shared_ptr<ExternalPointEntryViewModel> viewModel_;
  reactive::DisposeBag disposeBag_;
};

}  // namespace orrelo
