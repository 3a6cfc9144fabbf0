#pragma once

namespace orrelo::bench {

void addSendEvent();
void addSave();
void addDrain();
void addInitialize();
void addChain();
void addImage();

}  // namespace orrelo::bench
