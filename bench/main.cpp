#include "Benches.h"
#include "Targets.h"

#include <cstdio>
#include <cstdlib>

int main(int argumentCount, char** arguments) {
  using namespace orrelo::bench;
  addChain();
  addCampaign();
  addImage();
  addScratch();
  addModular();
  addInitialize();
  // From here on a kit runs in this process, and asks whatever machine there is.
  addSave();
  addDrain();
  addSendEvent();
  const bool allMet = runAll(argumentCount, arguments);
  std::fflush(stdout);
  std::_Exit(allMet ? 0 : 1);  // the kit's threads go with the process
}
