#include "modular/content/BoxedInformationListView.h"

#include <utility>

namespace orrelo {
namespace {

std::vector<std::shared_ptr<InformationBox>> boxesOf(const std::vector<BoxedInformation>& items) {
  std::vector<std::shared_ptr<InformationBox>> boxes;
  boxes.reserve(items.size());
  for (const auto& item : items) boxes.push_back(InformationBox::create(item));
  return boxes;
}

}  // namespace

BoxedInformationListView::BoxedInformationListView(std::string heading,
                                                   const std::vector<BoxedInformation>& items)
    : title(std::move(heading)), boxes(boxesOf(items)) {}

}  // namespace orrelo
