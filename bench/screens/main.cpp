// Measures the screens' targets in Qt's software renderer, without a display.
#include "Targets.h"
#include "screens/ScreenBenches.h"
#include "screens/TimedApplication.h"

#include <cstdio>
#include <cstdlib>

int main(int argumentCount, char** arguments) {
  using namespace orrelo::bench;
  // Before the stage makes the platform. The inspector costs nothing until it is opened.
  ::setenv("ORRELO_INSPECTOR", "1", 1);
  const TimedApplication application(argumentCount, arguments);
  addCampaignScreens();
  addCarousel();
  addFirstCampaign();
  addFrontSize();
  addGifPlayback();
  addGifticonScreen();
  addHomeScreen();
  addInspector();
  addPageOpening();
  addPointHistory();
  addWheel();
  const bool allMet = runAll(argumentCount, arguments);
  std::fflush(stdout);
  std::_Exit(allMet ? 0 : 1);
}
