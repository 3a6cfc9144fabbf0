#include "modular/ComponentKinds.h"

#include "modular/content/ActionButtonComponent.h"
#include "modular/content/BoxedInformationListComponent.h"
#include "modular/content/ImageComponent.h"
#include "modular/content/InformationComponent.h"
#include "modular/content/NoticeComponent.h"
#include "modular/content/PageEntryComponent.h"
#include "modular/content/TooltipInformationComponent.h"
#include "modular/content/WebComponent.h"
#include "modular/roulette/RouletteComponent.h"
#include "modular/scratch/ScratchLotteryComponent.h"

#include <array>

namespace orrelo {
namespace {

template <class Component>
constexpr ComponentKind kind() {
  return {Component::key, [](const JsonObject& json) -> std::shared_ptr<UIComponent> {
            return std::make_shared<Component>(json);
          }};
}

constexpr std::array kinds{
    kind<InformationComponent>(),    kind<ActionButtonComponent>(),
    kind<NoticeComponent>(),         kind<TooltipInformationComponent>(),
    kind<ImageComponent>(),          kind<RouletteComponent>(),
    kind<PageEntryComponent>(),      kind<BoxedInformationListComponent>(),
    kind<ScratchLotteryComponent>(), kind<WebComponent>(),
};

}  // namespace

std::span<const ComponentKind> componentKinds() {
  return kinds;
}

}  // namespace orrelo
