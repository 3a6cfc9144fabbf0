#include "ModularPages.h"

#include "base/Error.h"
#include "modular/content/BlankComponent.h"

#include <fstream>

namespace orrelo::test {

Json wholePage() {
  std::ifstream file(std::string(ORRELO_TEST_DATA) + "/modular.json");
  EXPECT_TRUE(file);
  return Json::parse(file)["page"]["page_details_v2"];
}

Json block(const std::string& kind, std::size_t index) {
  return wholePage()[kind][index];
}

Json pageOf(const Lines& order, const Json& arrays) {
  Json page{{"page_config", {{"layout", {{"component_order", order}}}}}};
  page.update(arrays);
  return page;
}

ModularCampaignPageDTO decodePage(const std::string& json) {
  JsonParser parser;
  return ModularCampaignPageDTO::decode(parser.parse(json).objectValue());
}

ModularCampaignPageDTO decodePage(const Json& json) {
  return decodePage(json.dump());
}

Lines namesOf(const std::vector<std::shared_ptr<UIComponent>>& components) {
  Lines names;
  for (const auto& component : components) {
    const auto* const blank = dynamic_cast<const BlankComponent*>(component.get());
    names.push_back(std::string(component->arrayKey()) +
                    (blank != nullptr ? " " + std::to_string(blank->height) : ""));
  }
  return names;
}

Lines outcomeOf(const std::string& json) {
  try {
    return namesOf(decodePage(json).components);
  } catch (const Error& error) {
    return {error.domain()};
  }
}

}  // namespace orrelo::test
