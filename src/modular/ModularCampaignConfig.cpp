#include "modular/ModularCampaignConfig.h"

#include "base/JsonFields.h"
#include "modular/dialog/RewardMessageDialogComponent.h"
#include "modular/dialog/ToastDialogComponent.h"

#include <utility>

namespace orrelo {
namespace {

using Dialogs = std::vector<std::shared_ptr<DialogComponent>>;

template <class Dialog>
void append(Dialogs& dialogs, const JsonObject& json, std::string_view key) {
  const auto rows =
      optionalRecords(json, key, [](const JsonObject& row) { return std::make_shared<Dialog>(row); });
  if (rows) dialogs.insert(dialogs.end(), rows->begin(), rows->end());
}

Dialogs decodeDialogs(const JsonObject& json) {
  Dialogs dialogs;
  append<RewardMessageDialogComponent>(dialogs, json, "reward_message");
  append<ToastDialogComponent>(dialogs, json, "toast");
  return dialogs;
}

std::optional<Toolbar> decodeToolbar(const JsonObject& json) {
  const auto value = json.find("toolbar");
  if (!value || value->isNull()) return std::nullopt;
  return Toolbar{value->objectValue().text("text")};
}

}  // namespace

PageLayout PageLayout::decode(const JsonObject& json) {
  return {decodeToolbar(json), textsOf(json, "component_order"),
          tolerantRecord(json, "dialog", &decodeDialogs).value_or(Dialogs())};
}

ModularCampaignConfig ModularCampaignConfig::decode(const JsonObject& json) {
  return {PageLayout::decode(json.object("layout"))};
}

}  // namespace orrelo
