#include "platform/posix/PosixApplication.h"
#include "support/ExplanationCapture.h"
#include "support/TestPlatform.h"
#include "ui/KeyWindow.h"
#include "viewkit/ShareSheetViewController.h"
#include "viewkit/mailtoUrl.h"

#include <gmock/gmock.h>

namespace orrelo::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

TEST(MailtoUrlTest, TheBodyIsEncodedWithTheLineBreaksOfAMail) {
  for (const auto& [body, encoded] : std::map<std::string, std::string>{
           {"", ""},
           {"a-b.c_d~9", "a-b.c_d~9"},
           {"1 + 1 = 2 & 50%?#", "1%20%2B%201%20%3D%202%20%26%2050%25%3F%23"},
           {"a\nb\r\nc\rd\n\r\n", "a%0D%0Ab%0D%0Ac%0D%0Ad%0D%0A%0D%0A"},
           {"초대🎁", "%EC%B4%88%EB%8C%80%F0%9F%8E%81"},
           {"\xFF", "%EF%BF%BD"},
       }) {
    EXPECT_EQ(mailtoUrl(body).text(), "mailto:?body=" + encoded);
  }
}

TEST(ShareSheetTest, ItComesOverTheUppermostScreenAndPassesTheTextOn) {
  const TestPlatform platform;
  std::vector<std::string> opened;
  platform.application->setUrlOpener({.canOpen = [](const Url&) { return false; },
                                      .open = [&](const Url& url) { opened.push_back(url.text()); }});
  const auto host = std::make_shared<HostViewController>();
  const auto middle = std::make_shared<HostViewController>();
  host->appear(false);
  host->present(middle, false);
  setKeyWindowRootViewController(host);
  const auto sheet = [&] {
    ShareSheetViewController::share("코드 A");
    EXPECT_TRUE(middle->presented().animated);
    return std::dynamic_pointer_cast<ShareSheetViewController>(middle->presentedViewController());
  };
  ASSERT_TRUE(sheet());
  EXPECT_TRUE(middle->isVisible()) << "the screen beneath stays";
  middle->dismiss(false);
  sheet()->copy();
  EXPECT_THAT(platform.texts->pasteboard, ElementsAre("코드 A"));
  EXPECT_FALSE(middle->presentedViewController());
  sheet()->mail();
  EXPECT_THAT(opened, ElementsAre("mailto:?body=%EC%BD%94%EB%93%9C%20A"));
  EXPECT_FALSE(middle->presentedViewController());
  sheet()->close();
  EXPECT_FALSE(middle->presentedViewController());
  EXPECT_EQ(platform.texts->pasteboard.size() + opened.size(), 2U);
}

TEST(ShareSheetTest, WhereNothingCanTakeATextALineSaysSo) {
  const TestPlatform platform;
  const ExplanationCapture log;
  setKeyWindowRootViewController(nullptr);
  ShareSheetViewController::share("코드");
  PosixApplication bare;
  bare.setPasteboard("코드");
  bare.share("코드");
  EXPECT_THAT(log.lines(), ElementsAre(HasSubstr("There is no screen to share a text from"),
                                       HasSubstr("This host has no pasteboard"),
                                       HasSubstr("This host cannot share texts")));
}

}  // namespace
}  // namespace orrelo::test
