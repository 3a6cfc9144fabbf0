#pragma once

namespace orrelo::bench {

void addSendEvent();
void addSave();
void addDrain();
void addInitialize();
void addChain();
void addImage();
void addGif();
void addCampaign();
void addScratch();
void addModular();
void addWebKit();
void addPush();
void addSize();

}  // namespace orrelo::bench
