#include "support/TestPlatform.h"
#include "viewkit/WebView.h"

#include <gmock/gmock.h>

namespace orrelo::test {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;
using State = WebView::State;

class WebViewTest : public testing::Test {
 protected:
  WebViewTest() {
    platform_.application->setUrlOpener(
        {[](const Url&) { return true; }, [this](const Url& url) { opened_.push_back(url.text()); }});
  }
  static std::shared_ptr<WebView> view(const std::string& url = "https://shop.example/page") {
    return std::make_shared<WebView>(*Url::parse(url), std::nullopt, 240.0);
  }

  TestPlatform platform_;
  std::vector<std::string> opened_;
};

TEST_F(WebViewTest, ALoadTimesOutAfterAMinute) {
  const auto silent = view();
  const auto slow = view();
  const auto quick = view();
  for (const auto& each : {silent, slow, quick}) each->didStart();
  slow->didReceive();
  quick->didFinish(true);
  platform_.loop->runFor(60s - 1us);
  EXPECT_EQ(silent->state.value(), State::loading);
  EXPECT_EQ(slow->state.value(), State::loading);
  platform_.loop->runFor(1us);
  EXPECT_EQ(silent->state.value(), State::empty);
  EXPECT_EQ(slow->state.value(), State::shown) << "a resource that hangs leaves the page shown";
  EXPECT_TRUE(slow->hasTimedOut());
  EXPECT_FALSE(quick->hasTimedOut()) << "what the user has opened since then goes on";
  silent->didFinish(true);
  EXPECT_EQ(silent->state.value(), State::empty) << "it stays empty";
  // The first load succeeded, so a later navigation that fails is the page's own matter.
  quick->didFinish(false);
  EXPECT_EQ(quick->state.value(), State::shown);
}

TEST_F(WebViewTest, AFailureLeavesThePlaceEmpty) {
  const auto failed = view();
  failed->didReceive();
  failed->didFinish(false);
  EXPECT_EQ(failed->state.value(), State::empty);
  const auto crashed = view();
  crashed->didFinish(true);
  crashed->processDidEnd();
  EXPECT_EQ(crashed->state.value(), State::empty);
  for (const auto* const url :
       {"file:///etc/passwd", "qrc:/page", "javascript:alert(1)", "data:text/html,x", "/page", "https:"}) {
    EXPECT_EQ(view(url)->state.value(), State::empty) << url;
  }
  EXPECT_EQ(view("HTTP://shop.example")->state.value(), State::loading);
}

TEST_F(WebViewTest, APageMayOnlyGoToWebSchemes) {
  const auto expect = [](bool mainFrame, bool subframe, const std::vector<std::string>& schemes) {
    for (const auto& scheme : schemes) {
      EXPECT_EQ(WebView::mayGoTo(scheme, false), mainFrame) << scheme;
      EXPECT_EQ(WebView::mayGoTo(scheme, true), subframe) << scheme;
    }
  };
  expect(true, true, {"https", "HTTP"});
  expect(false, true, {"data", "about", "blob"});
  expect(false, false, {"file", "qrc", "chrome", "javascript", "shop", ""});
}

TEST_F(WebViewTest, AWindowOpensInTheBrowser) {
  const auto page = view();
  for (const auto* const address : {"file:///etc/passwd", "shop://sale", "about:blank", "", "https://a b"}) {
    page->openWindow(address, true);
  }
  page->openWindow("https://shop.example/unasked", false);
  page->openWindow("https://shop.example/flood", false);
  page->openWindow("https://shop.example/asked?q=1", true);
  platform_.loop->runFor(200ms);
  page->openWindow("https://shop.example/asked?q=1", true);
  page->openWindow("https://shop.example/again", true);
  platform_.loop->runFor(500ms);
  page->openWindow("https://shop.example/again", true);
  EXPECT_THAT(opened_, ElementsAre("https://shop.example/unasked", "https://shop.example/asked?q=1",
                                   "https://shop.example/again", "https://shop.example/again"))
      << "a double click opens one window";
}

}  // namespace
}  // namespace orrelo::test
