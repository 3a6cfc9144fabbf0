#pragma once

#include "rewards/gifticon/GifticonViewCell.h"
#include "rewards/gifticon/GifticonViewModel.h"
#include "viewkit/ErrorView.h"
#include "viewkit/ORLUIViewController.h"

#include <orrelo/Export.h>

#include <cstddef>
#include <memory>
#include <string_view>
#include <utility>
#include <vector>

namespace orrelo {

/// The screen that lists the user's vouchers. It loads once. Each later list, after a voucher was issued,
/// replaces the rows; an error keeps them.
class ORRELO_EXPORT GifticonViewController final : public ORLUIViewController {
 public:
  struct State {
    /// One cell for each of `gifticons`.
    std::vector<GifticonViewCell> cells;
    bool isLoading = false;

    friend bool operator==(const State&, const State&) = default;
  };

  static std::shared_ptr<GifticonViewController> create(std::shared_ptr<GifticonViewModel> viewModel) {
    return std::shared_ptr<GifticonViewController>(new GifticonViewController(std::move(viewModel)));
  }

  static constexpr std::string_view kindName = "GifticonViewController";
  std::string_view kind() const override { return kindName; }

  const State& state() const { return state_.value(); }
  reactive::Observable<reactive::Unit> stateChanges() const { return state_.changes(); }
  /// The message over an empty list.
  const std::shared_ptr<ErrorView> errorView;

  /// A tap on a cell: issues an idle voucher, or shows the picture of a published one. Does nothing for other
  /// states, for a row that does not exist, and if nobody is signed in. Taps during a request are not
  /// blocked: a second tap deliberately issues twice.
  void didSelect(std::size_t row);

 protected:
  void viewDidLoad() override;

 private:
  explicit GifticonViewController(std::shared_ptr<GifticonViewModel> viewModel);

  void render(const GifticonViewModel::ViewState& viewState);
  void show(const GifticonViewModel::ViewState::Loaded& loaded);

  const std::shared_ptr<GifticonViewModel> viewModel_;
  std::vector<Gifticon> gifticons_;
  BrandTheme brandTheme_;
  Followed<State> state_;
  reactive::DisposeBag disposeBag_;
};

}  // namespace orrelo
