#include "QuickTest.h"
#include "WebPages.h"

namespace orrelo::test {
namespace {

using WebPlaceTest = QuickTest;

TEST_F(WebPlaceTest, AWebBlockIsPlainWithoutABrowserEngine) {
  service_->answers["/campaigns/c-1"] = {
      200, campaignReply(pageWithWebBlock("https://shop.example/page.html", 240))};
  showCampaign();
  ASSERT_TRUE(waitForNamed(QStringLiteral("참여하기")));
  const auto picture = grab("web-place");
  EXPECT_EQ(topOfButton(picture), 44 + 24 + 240 + 24) << "below the bar, a blank, the place and a blank";
  const QRect place(0, 44 + 24, 390, 240);
  EXPECT_EQ(count(picture.copy(place), picture.pixelColor(place.center())), 390 * 240);
}

}  // namespace
}  // namespace orrelo::test
