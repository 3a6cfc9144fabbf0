#pragma once

#include "campaign/CampaignScreen.h"
#include "page/Page.h"
#include "ui/PageRouter.h"
#include "viewkit/ErrorView.h"

#include <orrelo/Export.h>

#include <memory>
#include <optional>
#include <string>

namespace orrelo {

/// The screen for all kinds of campaigns. It loads whenever it appears, and each result of a load or a
/// participation replaces its content. An error of the streams is final. A campaign that cannot be shown is
/// replaced by the next result.
class ORRELO_EXPORT CampaignViewController final : public ORLUIViewController, public CampaignScreen {
 public:
  struct State {
    /// The page of the campaign; null until the first result. It stays while the screen reloads.
    std::shared_ptr<View> content;
    bool isLoading = false;

    friend bool operator==(const State&, const State&) = default;
  };
  static constexpr auto backgroundAsset = "orl_bg_gray_gradient";

  static std::shared_ptr<CampaignViewController> create(std::shared_ptr<CampaignViewModel> viewModel,
                                                        std::string id);
  static std::shared_ptr<CampaignViewController> create(std::shared_ptr<CampaignViewModel> viewModel,
                                                        ORLCampaignType type);

  static constexpr std::string_view kindName = "CampaignViewController";
  std::string_view kind() const override { return kindName; }

  const State& state() const { return state_.value(); }
  reactive::Observable<reactive::Unit> stateChanges() const { return state_.changes(); }
  /// The error view, above the content.
  const std::shared_ptr<ErrorView> errorView;

  void participate(const std::string& actionUrl) override;
  void route(const Page& page) override;
  void reload() override;

  void show(const std::shared_ptr<View>& content) override;
  void showError(OrreloError reason) override;
  bool isAttached() const override;
  std::shared_ptr<ORLUIViewController> viewController() override;
  const CampaignViewModel& model() const override { return *viewModel_; }

  /// Opens the pages that a campaign links to. If null, such links do nothing.
  std::shared_ptr<PageRouter> pageRouter;

 protected:
  void viewDidLoad() override;
  void viewWillAppear(bool animated) override;

 private:
  template <class Target>
  using TriggerSubject = reactive::PublishSubject<CampaignTrigger<Target>>;

  CampaignViewController(std::shared_ptr<CampaignViewModel> viewModel, std::optional<std::string> campaignId,
                         std::optional<ORLCampaignType> campaignType);

  void render(const BrandedCampaign& element);
  void setLoading(bool isLoading);
  void fail(const Error& error);

  const std::shared_ptr<CampaignViewModel> viewModel_;
  const std::optional<std::string> campaignId_;
  const std::optional<ORLCampaignType> campaignType_;
  const TriggerSubject<std::string> loadTriggerByCampaignId_;
  const TriggerSubject<ORLCampaignType> loadTriggerByCampaignType_;
  const TriggerSubject<std::string> participateTrigger_;
  Followed<State> state_;
  reactive::DisposeBag disposeBag_;
};

}  // namespace orrelo
