#pragma once

namespace orrelo::bench {

void addCampaignScreens();
void addWheel();

}  // namespace orrelo::bench
