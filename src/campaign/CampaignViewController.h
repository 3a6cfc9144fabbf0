#pragma once

#include "campaign/CampaignActionView.h"
#include "campaign/CampaignViewModel.h"
#include "modular/ModularCampaignView.h"
#include "ui/Routing.h"
#include "viewkit/ErrorView.h"
#include "viewkit/ORLUIViewController.h"

#include <orrelo/Export.h>

#include <memory>
#include <optional>
#include <string>

namespace orrelo {

/// The one screen for every kind of campaign. It loads each time it appears, and whatever comes, from a load
/// or from taking part, replaces what it shows. After an error of its streams it stays as it is; a kind that
/// it cannot show gives way to the next campaign.
class ORRELO_EXPORT CampaignViewController final : public ORLUIViewController,
                                                   public CampaignActionViewDelegate,
                                                   public ModularCampaignViewDelegate {
 public:
  struct State {
    /// The page of the campaign's kind; null until there is one. It stays while another loads.
    std::shared_ptr<View> content;
    bool isLoading = false;

    friend bool operator==(const State&, const State&) = default;
  };
  static constexpr auto backgroundAsset = "orl_bg_gray_gradient";
  /// Of the activity indicator, in points.
  static constexpr Size indicatorSize{50.0, 50.0};

  static std::shared_ptr<CampaignViewController> create(std::shared_ptr<CampaignViewModel> viewModel,
                                                        std::string id);
  static std::shared_ptr<CampaignViewController> create(std::shared_ptr<CampaignViewModel> viewModel,
                                                        ORLCampaignType type);

  static constexpr std::string_view kindName = "CampaignViewController";
  std::string_view kind() const override { return kindName; }

  State state() const { return state_.value(); }
  reactive::Observable<State> states() const { return state_.stream(); }
  /// Over the content while it is not hidden.
  const std::shared_ptr<ErrorView> errorView;

  void participate(const std::string& actionUrl) override;
  void route(const Page& page) override;
  void reload() override;

  /// Where it is null, a page that leads elsewhere leads nowhere.
  std::shared_ptr<PageRouter> pageRouter;

 protected:
  void viewDidLoad() override;
  void viewWillAppear(bool animated) override;

 private:
  template <class Target>
  using TriggerSubject = reactive::PublishSubject<CampaignTrigger<Target>>;

  CampaignViewController(std::shared_ptr<CampaignViewModel> model, std::optional<std::string> id,
                         std::optional<ORLCampaignType> type);

  void render(const BrandedCampaign& element);
  void show(const std::shared_ptr<View>& content);
  /// For what this build cannot show.
  void showNothing(OrreloError reason);
  void render(const AttendanceCampaign& attendance);
  void render(const StampCampaign& stamp);
  void render(const OptInMarketingCampaign& optIn);
  void render(const CampaignResult& result, const std::string& id);
  void render(const ModularCampaign& modular);
  void showOnce(const CampaignPopUpDialog& dialog, const std::string& id);
  /// Nobody sees a dialog over a screen that was taken away while its reply was on its way.
  bool hasPlace() const;
  void fail(const Error& error);

  const std::shared_ptr<CampaignViewModel> viewModel;
  const std::optional<std::string> campaignId;
  const std::optional<ORLCampaignType> campaignType;
  const TriggerSubject<std::string> loadTriggerByCampaignId;
  const TriggerSubject<ORLCampaignType> loadTriggerByCampaignType;
  const TriggerSubject<std::string> participateTrigger;
  Followed<State> state_;
  reactive::DisposeBag disposeBag;
};

}  // namespace orrelo
