#pragma once

namespace orrelo::bench {

void addCampaignScreens();
void addGifticonScreen();
void addHomeScreen();
void addPointHistory();
void addWheel();

}  // namespace orrelo::bench
