#include "model/UserManager.h"
#include "network/HTTPClient.h"
#include "reactive/Observable.h"
#include "rewards/gifticon/GifticonDetailViewController.h"
#include "rewards/gifticon/GifticonRouter.h"
#include "rewards/gifticon/GifticonViewController.h"
#include "support/FixedConfig.h"
#include "support/Reports.h"
#include "support/TestPlatform.h"

#include <gmock/gmock.h>

namespace orrelo::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr auto failed = "잠시 후 다시 시도해주세요.";

std::string row(const std::string& id, const std::string& state) {
  return R"({"id":")" + id + R"(","tag_text":"","title":")" + id +
         R"(","date":"2026-12-31T00:00:00Z","state":")" + state +
         R"(","image_url":"https://cdn.example/1.png"})";
}

class GifticonScreenTest : public testing::Test {
 protected:
  GifticonScreenTest() {
    setUserEventDelegate(reports_);
    setCurrentUserId("minji");
    host_->appear(false);
  }
  ~GifticonScreenTest() override {
    setUserEventDelegate(nullptr);
    setCurrentUserId(std::nullopt);
  }

  /// Opens the screen, whose first request waits.
  void open() {
    const auto service = std::make_shared<GifticonServiceImpl>(
        NetworkConfig{"https://api.example", {}}, std::make_shared<HTTPClientImpl>(),
        std::make_shared<reactive::ConcurrentDispatchQueueScheduler>(QualityOfService::userInitiated));
    GifticonRouter router(std::make_shared<GifticonViewControllerFactoryImpl>(
        GifticonUseCases{std::make_shared<FetchGifticonUseCaseImpl>(service),
                         std::make_shared<PublishGifticonUseCaseImpl>(service), config_}));
    router.route(
        host_, [this] { ++routed_; }, [](const Error&) { ADD_FAILURE() << "it never fails"; });
    screen_ = std::dynamic_pointer_cast<GifticonViewController>(host_->presentedViewController());
    ASSERT_TRUE(screen_);
    platform_.loop->run();
  }
  void openWith(const std::string& list) {
    open();
    answer(200, list);
  }
  /// Answers the oldest request that waits.
  void answer(int status, const std::string& body) {
    platform_.session->answer(ScriptedURLSession::reply(status, body));
    platform_.loop->run();
  }
  void tap(std::size_t row) {
    screen_->didSelect(row);
    platform_.loop->run();
  }
  std::vector<std::string> titles() const {
    std::vector<std::string> titles;
    for (const auto& cell : screen_->state().cells) titles.push_back(cell.titleLabel + " " + cell.iconLabel);
    return titles;
  }
  bool saysEmpty() const { return !screen_->errorView->state.value().isHidden; }
  std::vector<std::string> toasts() const {
    std::vector<std::string> texts;
    for (const auto& toast : screen_->toastLayer->toasts.value()) texts.push_back(toast->message);
    return texts;
  }
  std::shared_ptr<GifticonDetailViewController> detail() const {
    return std::dynamic_pointer_cast<GifticonDetailViewController>(screen_->presentedViewController());
  }

  TestPlatform platform_;
  std::shared_ptr<Reports> reports_ = std::make_shared<Reports>();
  std::shared_ptr<FixedConfig> config_ = std::make_shared<FixedConfig>();
  std::shared_ptr<HostViewController> host_ = std::make_shared<HostViewController>();
  std::shared_ptr<GifticonViewController> screen_;
  int routed_ = 0;
};

TEST_F(GifticonScreenTest, ItLoadsOnceForTheUser) {
  open();
  EXPECT_EQ(routed_, 1);
  EXPECT_EQ(screen_->modalTopBar(), (ModalTopBar{"기프티콘", 44.0}));
  EXPECT_TRUE(screen_->state().isLoading);
  EXPECT_THAT(reports_->names, ElementsAre("ol_visit"));
  EXPECT_THAT(reports_->pages, ElementsAre("gifticon_list"));
  answer(200, "[" + row("b", "idle") + "," + row("a", "used") + "]");
  EXPECT_FALSE(screen_->state().isLoading);
  EXPECT_THAT(titles(), ElementsAre("b 발급하기", "a 사용 완료"));
  EXPECT_EQ(platform_.session->requests.at(0).headers.at("buid"), "minji");
  screen_->disappear(false);
  screen_->appear(false);
  platform_.loop->run();
  EXPECT_EQ(platform_.session->requests.size(), 1u);
  screen_->close();
  EXPECT_EQ(host_->presentedViewController(), nullptr);
}

TEST_F(GifticonScreenTest, WithoutAUserNothingLoadsAndNoTapActs) {
  openWith("[" + row("a", "idle") + "," + row("b", "downloaded") + "]");
  setCurrentUserId(std::nullopt);
  tap(0);
  tap(1);
  EXPECT_EQ(platform_.session->requests.size(), 1u);
  EXPECT_EQ(detail(), nullptr);
  host_->dismiss(false);
  open();
  EXPECT_FALSE(screen_->state().isLoading);
  EXPECT_EQ(platform_.session->requests.size(), 1u);
  EXPECT_THAT(reports_->pages, ElementsAre("gifticon_list", "gifticon_list"));
}

TEST_F(GifticonScreenTest, ATapDoesWhatTheStateAllows) {
  openWith("[" + row("a", "idle") + "," + row("b", "downloaded") + "," + row("c", "expired") + "," +
           row("d", "used") + "," + row("e", "canceled") + "]");
  for (const std::size_t inert : {2U, 3U, 4U, 5U, 1000U}) tap(inert);
  EXPECT_EQ(platform_.session->requests.size(), 1u);
  EXPECT_EQ(screen_->presentedViewController(), nullptr);

  tap(0);
  EXPECT_TRUE(screen_->state().isLoading);
  EXPECT_EQ(titles().size(), 5u) << "the rows stay meanwhile";
  EXPECT_EQ(platform_.session->requests.at(1).body, R"({"gifticon_id":"a"})");
  tap(0);
  EXPECT_EQ(platform_.session->requests.size(), 3u) << "a second tap issues again";
  answer(200, "[" + row("a", "downloaded") + "]");
  EXPECT_FALSE(screen_->state().isLoading);
  EXPECT_THAT(titles(), ElementsAre("a 기프티콘 보기"));
  answer(500, "");
  EXPECT_THAT(titles(), ElementsAre("a 기프티콘 보기"));
  EXPECT_THAT(toasts(), ElementsAre(failed));

  tap(0);
  ASSERT_TRUE(detail());
  EXPECT_EQ(detail()->imageUrl, "https://cdn.example/1.png");
  EXPECT_EQ(detail()->buttonText, "닫기");
  EXPECT_THAT(reports_->pages, ElementsAre("gifticon_list", "gifticon_detail"));
  tap(0);
  EXPECT_EQ(reports_->pages.size(), 2u) << "a second tap shows no second picture";
}

TEST_F(GifticonScreenTest, AnEmptyListClearsTheRowsAndALaterOneHidesTheMessage) {
  openWith("[" + row("a", "idle") + "]");
  tap(0);
  tap(0);
  tap(0);
  tap(0);
  answer(200, "[]");
  EXPECT_THAT(titles(), IsEmpty());
  EXPECT_TRUE(saysEmpty());
  EXPECT_EQ(screen_->errorView->state.value().text, "사용할 수 있는 기프티콘이 없습니다.");
  EXPECT_THAT(toasts(), IsEmpty());
  answer(200, "[" + row("a", "pending") + "]");
  EXPECT_FALSE(saysEmpty()) << "every state hides it";
  EXPECT_THAT(toasts(), ElementsAre(failed));
  EXPECT_EQ(screen_->toastLayer->toasts.value()[0]->backgroundColor, (Color{0, 0, 0, 0.87}));
  answer(200, "[]");
  EXPECT_TRUE(saysEmpty());
  answer(200, "[" + row("b", "used") + "]");
  EXPECT_FALSE(saysEmpty());
  EXPECT_THAT(titles(), ElementsAre("b 사용 완료"));
}

TEST_F(GifticonScreenTest, AnErrorOfTheConfigurationIsAnError) {
  config_->error = makeError(OrreloError::network);
  openWith("[" + row("a", "idle") + "]");
  EXPECT_THAT(titles(), IsEmpty());
  EXPECT_THAT(toasts(), ElementsAre(failed));
  EXPECT_FALSE(screen_->state().isLoading);
}

TEST_F(GifticonScreenTest, AScreenThatIsGoneIsNotCalled) {
  open();
  const std::weak_ptr<ViewController> gone = screen_;
  host_->dismiss(false);
  screen_ = nullptr;
  EXPECT_TRUE(gone.expired());
  EXPECT_EQ(platform_.session->cancelled, 1);
  answer(200, "[]");
}

TEST_F(GifticonScreenTest, ThePictureLoadsOrSaysThatItCannot) {
  openWith("[" + row("a", "downloaded") + "]");
  const auto show = [this](const std::string& url) {
    const auto detail = std::make_shared<GifticonDetailViewController>(url, "닫기");
    screen_->present(detail, false);
    platform_.loop->run();
    return detail;
  };
  const auto loaded = show("https://cdn.example/1.png");
  EXPECT_TRUE(loaded->isLoading.value());
  loaded->imageView->setSize({320.0, 480.0});
  answer(200, PlainImageCodec::file(8, 6));
  EXPECT_FALSE(loaded->isLoading.value());
  EXPECT_TRUE(loaded->errorView->state.value().isHidden);
  EXPECT_EQ(loaded->imageView->frame.value(), (Rect{0, 120, 320, 240}));
  loaded->close();
  EXPECT_EQ(screen_->presentedViewController(), nullptr);

  for (const auto* const url : {"https://cdn.example/none.png", "", "no url", "https://cdn.example/1.gif"}) {
    const auto detail = show(url);
    if (detail->isLoading.value()) answer(404, "");
    EXPECT_FALSE(detail->isLoading.value()) << url;
    EXPECT_FALSE(detail->errorView->state.value().isHidden) << url;
    detail->close();
  }
}

}  // namespace
}  // namespace orrelo::test
