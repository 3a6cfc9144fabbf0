#include "DevService.h"
#include "support/Program.h"
#include "support/TemporaryFolder.h"

#include <gmock/gmock.h>
#include <string>

namespace orrelo::test {
namespace {

using testing::HasSubstr;

TEST(ScreensHostTest, AHostInCShowsCampaigns) {
  const TemporaryFolder folder;
  devservice::DevService service({.dataDirectory = folder.path() / "service"});
  service.start();
  // Qt leaks when an engine is destroyed; leaks of the C interface are found by the tests without screens.
  Program host({"env", "QT_QPA_PLATFORM=offscreen", "QT_QUICK_BACKEND=software",
                "ASAN_OPTIONS=detect_leaks=0", ORRELO_C_HOST, service.baseUrl(),
                service.certificatePath().string(), (folder.path() / "device").string(), ORRELO_C_HOST_QML});
  const auto output = host.written("done after");
  if (output.find("done after") != std::string::npos) {
    EXPECT_EQ(host.wait(), 0);
  }
  EXPECT_THAT(output, HasSubstr("refused: "));
  EXPECT_THAT(output, HasSubstr("campaign_entry_point_name=page of C"));
  EXPECT_THAT(output, HasSubstr("done after 2 visits"));
  EXPECT_GE(service.requestCount("/campaigns/stamp"), 1);
}

}  // namespace
}  // namespace orrelo::test
