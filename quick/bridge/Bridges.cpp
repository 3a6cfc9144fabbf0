#include "quick/bridge/Bridges.h"

#include "quick/campaign/CampaignKindBridges.h"
#include "quick/campaign/CampaignScreenBridge.h"
#include "quick/campaign/attendance/AttendanceCampaignBridge.h"
#include "quick/campaign/result/CampaignResultBridge.h"
#include "quick/host/NavigationBridge.h"
#include "quick/modular/content/ContentBridges.h"
#include "quick/modular/roulette/RouletteBridge.h"
#include "quick/modular/scratch/ScratchLotteryBridge.h"
#include "quick/viewkit/ErrorScreenBridge.h"
#include "quick/viewkit/PopUpDialogScreenBridge.h"
#include "quick/viewkit/RewardScreenBridge.h"

#include <QLoggingCategory>
#include <algorithm>
#include <array>

namespace orrelo::quick {
namespace {

Q_LOGGING_CATEGORY(front, "orrelo.quick")

template <class Core, class CoreBase, class Bridge, class BridgeBase>
BridgeBase* make(const std::shared_ptr<CoreBase>& core, QObject* parent) {
  return new Bridge(std::static_pointer_cast<Core>(core), parent);
}

template <class CoreBase, class BridgeBase>
struct Kind {
  std::string_view name;
  /// Of the file that draws it, which is named as the kind.
  const char* folder;
  BridgeBase* (*make)(const std::shared_ptr<CoreBase>&, QObject*);
};

template <class Core, class Bridge>
constexpr Kind<View, ViewBridge> viewKind(std::string_view name, const char* folder) {
  return {name, folder, &make<Core, View, Bridge, ViewBridge>};
}

template <class Core, class Bridge>
constexpr Kind<ViewController, ScreenBridge> screenKind(std::string_view name, const char* folder) {
  return {name, folder, &make<Core, ViewController, Bridge, ScreenBridge>};
}

constexpr std::array views{
    viewKind<AttendanceCampaignView, AttendanceCampaignBridge>("AttendanceCampaignView",
                                                               "campaign/attendance"),
    viewKind<CampaignResultView, CampaignResultBridge>("CampaignResultView", "campaign/result"),
    viewKind<InduceUpdateView, InduceUpdateBridge>("InduceUpdateView", "campaign/update"),
    viewKind<OptInMarketingCampaignView, OptInMarketingCampaignBridge>("OptInMarketingCampaignView",
                                                                       "campaign/optinmarketing"),
    viewKind<StampCampaignView, StampCampaignBridge>("StampCampaignView", "campaign/stamp"),
    viewKind<StampBoardView, StampBoardBridge>("StampBoardView", "campaign/stamp"),
    viewKind<CampaignNoticeView, CampaignNoticeBridge>("CampaignNoticeView", "viewkit"),
    viewKind<AutoLayoutImageView, ImageBridge>("AutoLayoutImageView", "image"),
    viewKind<ModularCampaignView, ModularCampaignBridge>("ModularCampaignView", "modular"),
    viewKind<ActionButtonView, ActionButtonBridge>("ActionButtonView", "modular/content"),
    viewKind<BoxedInformationListView, BoxedInformationListBridge>("BoxedInformationListView",
                                                                   "modular/content"),
    viewKind<InformationView, InformationBridge>("InformationView", "modular/content"),
    viewKind<NoticeView, NoticeBridge>("NoticeView", "modular/content"),
    viewKind<PageEntryView, PageEntryBridge>("PageEntryView", "modular/content"),
    viewKind<SpacerView, SpacerBridge>("SpacerView", "modular/content"),
    viewKind<TooltipInformationView, TooltipInformationBridge>("TooltipInformationView", "modular/content"),
    viewKind<WebView, WebBridge>("WebView", "modular/content"),
    viewKind<RouletteView, RouletteBridge>("RouletteView", "modular/roulette"),
    viewKind<ScratchLotteryView, ScratchLotteryBridge>("ScratchLotteryView", "modular/scratch"),
};

constexpr std::array screens{
    screenKind<CampaignViewController, CampaignScreenBridge>("CampaignViewController", "campaign"),
    screenKind<CampaignRewardViewController, RewardScreenBridge>("CampaignRewardViewController", "viewkit"),
    screenKind<ErrorViewController, ErrorScreenBridge>("ErrorViewController", "viewkit"),
    screenKind<NavigationController, NavigationBridge>("NavigationController", "host"),
    screenKind<PopUpDialogViewController, PopUpDialogScreenBridge>("PopUpDialogViewController", "viewkit"),
};

template <class Kinds>
auto find(const Kinds& kinds, std::string_view name) {
  const auto found =
      std::find_if(kinds.begin(), kinds.end(), [name](const auto& kind) { return kind.name == name; });
  return found == kinds.end() ? nullptr : &*found;
}

}  // namespace

ViewBridge* makeBridge(const std::shared_ptr<View>& view, QObject* parent) {
  if (const auto* kind = find(views, view->kind())) return kind->make(view, parent);
  qCWarning(front) << "no look for the view" << toQt(view->kind());
  return new ViewBridge(view, parent);
}

ScreenBridge* makeBridge(const std::shared_ptr<ViewController>& screen, QObject* parent) {
  if (const auto* kind = find(screens, screen->kind())) return kind->make(screen, parent);
  qCWarning(front) << "no look for the screen" << toQt(screen->kind());
  return new ScreenBridge(screen, parent);
}

QUrl delegateOf(std::string_view name) {
  const auto file = [](const auto& kind) {
    return moduleFile(QStringLiteral("%1/%2.qml").arg(QLatin1String(kind.folder), toQt(kind.name)));
  };
  if (const auto* kind = find(views, name)) return file(*kind);
  if (const auto* kind = find(screens, name)) return file(*kind);
  return {};
}

}  // namespace orrelo::quick
