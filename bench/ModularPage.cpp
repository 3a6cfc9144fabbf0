#include "ModularPage.h"

#include <simdjson.h>
#include <string_view>

namespace orrelo::bench {
namespace {

// The blocks of the service's sample page.
class Sample {
 public:
  Sample() : reply_(parser_.load(ORRELO_BENCH_DATA "/campaign/modular.json")) {}

  simdjson::dom::object details() const { return reply_["page"]["page_details_v2"]; }
  simdjson::dom::array order() const { return details()["page_config"]["layout"]["component_order"]; }

 private:
  simdjson::dom::parser parser_;
  simdjson::dom::element reply_;
};

// Cycles through the elements, with new picture URLs for each.
std::string repeated(const simdjson::dom::array& elements, std::size_t count, const std::string& salt) {
  std::string list;
  for (std::size_t i = 0; i < count; ++i) {
    std::string element = simdjson::minify(elements.at(i % elements.size()));
    const auto query = "?" + salt + std::to_string(i);
    for (auto end = element.find(".png"); end != std::string::npos; end = element.find(".png", end + 1)) {
      element.insert(end + 4, query);
    }
    list += (i == 0 ? "" : ",") + element;
  }
  return list;
}

}  // namespace

std::vector<std::string> mixedBlocks(std::size_t count) {
  const Sample sample;
  std::vector<std::string> known;
  for (const std::string_view name : sample.order()) {
    if (sample.details()[name].error() == simdjson::SUCCESS) known.emplace_back(name);
  }
  std::vector<std::string> order;
  while (order.size() < count) order.push_back(known[order.size() % known.size()]);
  return order;
}

std::string modularPage(const std::vector<std::string>& order, const std::string& salt) {
  const Sample sample;
  std::string names;
  for (const auto& name : order) names += (names.empty() ? "\"" : ",\"") + name + "\"";
  std::string arrays;
  for (const auto field : sample.details()) {
    if (!field.value.is_array()) continue;
    arrays += ",\"" + std::string(field.key) + "\":[" + repeated(field.value, order.size() + 1, salt) + "]";
  }
  return R"({"page_type":"gift_box","page_id":"p-1","page_details_v2":{"page_config":{"layout":{
             "toolbar":{"text":"선물 상자"},"component_order":[)" +
         names + "]}}" + arrays + "}}";
}

}  // namespace orrelo::bench
