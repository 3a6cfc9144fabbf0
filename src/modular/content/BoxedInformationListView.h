#pragma once

#include "modular/content/BoxedInformationListComponent.h"
#include "modular/content/InformationBox.h"

#include <orrelo/Export.h>

#include <memory>
#include <string>
#include <vector>

namespace orrelo {

/// A title above one full-width box per item.
class ORRELO_EXPORT BoxedInformationListView final : public View {
 public:
  BoxedInformationListView(std::string heading, const std::vector<BoxedInformation>& items);

  static constexpr std::string_view kindName = "BoxedInformationListView";
  std::string_view kind() const override { return kindName; }

  const std::string title;
  const std::vector<std::shared_ptr<InformationBox>> boxes;
};

}  // namespace orrelo
