#pragma once

namespace orrelo::bench {

void addCampaignScreens();
void addPointHistory();
void addWheel();

}  // namespace orrelo::bench
