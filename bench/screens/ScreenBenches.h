#pragma once

namespace orrelo::bench {

void addCampaignScreens();
void addCarousel();
void addGifPlayback();
void addGifticonScreen();
void addHomeScreen();
void addInspector();
void addFrontSize();
void addPointHistory();
void addWheel();

}  // namespace orrelo::bench
