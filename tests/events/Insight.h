#pragma once

#include "events/KelsoInsight.h"
#include "kit/BIEventComponent.h"

namespace orrelo::test {

/// The kit's own events go into a new pipeline, as from `initialize` on.
inline void setUpInsight(const std::string& appKey = "app") {
  const BIEventComponent component(appKey, "https://service.test/orreloservice/");
  KelsoInsight::makeCurrent(std::make_shared<KelsoInsight>(component.saveBIEventUseCase));
}

}  // namespace orrelo::test
