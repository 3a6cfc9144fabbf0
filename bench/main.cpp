#include "Benches.h"
#include "Targets.h"

#include <cstdio>
#include <cstdlib>

int main(int argumentCount, char** arguments) {
  using namespace orrelo::bench;
  addSize();
  addChain();
  addCampaign();
  addImage();
  addGif();
  addScratch();
  addModular();
  addWebKit();
  addPush();
  addInitialize();
  // The measurements below start a kit on the real platform, which keeps running in this process.
  addSave();
  addDrain();
  addSendEvent();
  const bool allMet = runAll(argumentCount, arguments);
  std::fflush(stdout);
  std::_Exit(allMet ? 0 : 1);  // without joining the kit's threads
}
