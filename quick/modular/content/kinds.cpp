#include "quick/bridge/Kinds.h"

#include "quick/modular/content/ActionButtonBridge.h"
#include "quick/modular/content/BoxedInformationListBridge.h"
#include "quick/modular/content/InformationBridge.h"
#include "quick/modular/content/NoticeBridge.h"
#include "quick/modular/content/PageEntryBridge.h"
#include "quick/modular/content/SpacerBridge.h"
#include "quick/modular/content/TooltipInformationBridge.h"
#include "quick/modular/content/WebBridge.h"

#include <array>

namespace orrelo::quick {
namespace {

constexpr std::array views{
    viewKind<ActionButtonView, ActionButtonBridge>(),
    viewKind<BoxedInformationListView, BoxedInformationListBridge>(),
    viewKind<InformationView, InformationBridge>(),
    viewKind<NoticeView, NoticeBridge>(),
    viewKind<PageEntryView, PageEntryBridge>(),
    viewKind<SpacerView, SpacerBridge>(),
    viewKind<TooltipInformationView, TooltipInformationBridge>(),
    viewKind<WebView, WebBridge>(),
};

}  // namespace

Kinds contentKinds() {
  return {.views = views};
}

}  // namespace orrelo::quick
