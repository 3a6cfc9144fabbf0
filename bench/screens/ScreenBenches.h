#pragma once

namespace orrelo::bench {

void addCampaignScreens();
void addGifticonScreen();
void addWheel();

}  // namespace orrelo::bench
