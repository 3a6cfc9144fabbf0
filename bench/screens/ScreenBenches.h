#pragma once

namespace orrelo::bench {

void addCampaignScreens();
void addCarousel();
void addFirstCampaign();
void addGifPlayback();
void addGifticonScreen();
void addHomeScreen();
void addInspector();
void addPointHistory();
void addWheel();

}  // namespace orrelo::bench
