#pragma once

namespace orrelo::bench {

void addCampaignScreens();
void addCarousel();
void addFirstCampaign();
void addFrontSize();
void addGifPlayback();
void addGifticonScreen();
void addHomeScreen();
void addInspector();
void addPageOpening();
void addPointHistory();
void addWheel();

}  // namespace orrelo::bench
