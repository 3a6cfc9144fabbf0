#pragma once

#include "base/Error.h"
#include "base/preconditionFailure.h"
#include "modular/ModularCampaignPageDTO.h"
#include "modular/content/BlankComponent.h"

#include <fstream>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

namespace orrelo::test {

using Json = nlohmann::ordered_json;
using Lines = std::vector<std::string>;

/// A page with every kind of block, dialogs and one unknown block name.
inline Json wholePage() {
  std::ifstream file(std::string(ORRELO_TEST_DATA) + "/modular.json");
  EXPECT_TRUE(file);
  return Json::parse(file)["page"]["page_details_v2"];
}

/// One block of the kind, from the whole page.
inline Json block(const std::string& kind, std::size_t index = 0) {
  return wholePage()[kind][index];
}

/// A page of these blocks in this order.
inline Json pageOf(const Lines& order, const Json& arrays = Json::object()) {
  Json page{{"page_config", {{"layout", {{"component_order", order}}}}}};
  page.update(arrays);
  return page;
}

inline ModularCampaignPageDTO decodePage(const std::string& json) {
  JsonParser parser;
  return ModularCampaignPageDTO::decode(parser.parse(json).objectValue());
}
inline ModularCampaignPageDTO decodePage(const Json& json) {
  return decodePage(json.dump());
}

/// "image", "blank 8", …
inline Lines namesOf(const std::vector<std::shared_ptr<UIComponent>>& components) {
  Lines names;
  for (const auto& component : components) {
    const auto* const blank = dynamic_cast<const BlankComponent*>(component.get());
    names.push_back(std::string(component->arrayKey()) +
                    (blank != nullptr ? " " + std::to_string(blank->height) : ""));
  }
  return names;
}

/// The names of the page's blocks, or the domain of the decoding error.
inline Lines outcomeOf(const std::string& json) {
  try {
    return namesOf(decodePage(json).components);
  } catch (const Error& error) {
    return {error.domain()};
  }
}

/// Turns a failed precondition into a thrown `Stop` while this object lives.
class StopsThrow {
 public:
  struct Stop {
    std::string message;
  };

  StopsThrow() {
    setPreconditionFailureHandler([](std::string_view message) { throw Stop{std::string(message)}; });
  }
  StopsThrow(const StopsThrow&) = delete;
  ~StopsThrow() { setPreconditionFailureHandler(nullptr); }
};

}  // namespace orrelo::test
