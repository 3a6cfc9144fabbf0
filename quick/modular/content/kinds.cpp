#include "quick/bridge/Kinds.h"

#include "quick/modular/content/ActionButtonBridge.h"
#include "quick/modular/content/BoxedInformationListBridge.h"
#include "quick/modular/content/PageEntryBridge.h"
#include "quick/modular/content/SpacerBridge.h"
#include "quick/modular/content/TooltipInformationBridge.h"

#include <array>

namespace orrelo::quick {

Kinds contentKinds() {
  static constexpr std::array views{
      viewKind<ActionButtonView, ActionButtonBridge>(),
      viewKind<BoxedInformationListView, BoxedInformationListBridge>(),
      viewKind<PageEntryView, PageEntryBridge>(),
      viewKind<SpacerView, SpacerBridge>(),
      viewKind<TooltipInformationView, TooltipInformationBridge>(),
  };
  return {.views = views};
}

}  // namespace orrelo::quick
