// Animated images in a real window. The test makes the display tick; frames are decoded on the main loop.
#include "QuickTest.h"
#include "campaign/CampaignViewController.h"
#include "image/ImageView.h"
#include "modular/ModularCampaignView.h"
#include "modular/content/PageEntryView.h"
#include "platform/posix/PosixApplication.h"
#include "support/Twins.h"

#include <QFile>
#include <algorithm>

namespace orrelo::test {
namespace {

const QColor red("#e01020");
const QColor green("#10a040");
const QColor blue("#2040d0");
const QString play = QStringLiteral("움직이는 이미지 재생");
const QString entry = QStringLiteral("출석체크, 매일 포인트 받기");
const QString spinner = QStringLiteral("불러오는 중");

/// An animation in a block of its own, and the same one as the icon of an entry, far above a button.
std::string movingPage() {
  return R"({"page_type":"box","page_id":"p","page_details_v2":{"page_config":{"layout":{
      "toolbar":{"text":"행운의 동전"},"component_order":["image","page_entry_view","action"]}},
    "blank":[24,20,1600],
    "image":[{"url":"https://cdn.example/moving.gif","style":"fit"}],
    "page_entry_view":[{"title":"출석체크","label":"매일 포인트 받기",
      "icon_url":"https://cdn.example/moving.gif","campaign_id":"c-2"}],
    "action":[{"button_text":"모으기","status_message":"","button_enable":true,"button_url":"/open",
      "button_color":"#5B50E8"}]}})";
}

struct Parts {
  std::shared_ptr<ManualDisplayLink> display = std::make_shared<ManualDisplayLink>();
  std::shared_ptr<PosixApplication> application;
};

class GifTest : public QuickTest {
 protected:
  explicit GifTest(std::shared_ptr<Parts> parts = std::make_shared<Parts>())
      : QuickTest([parts](Platform& platform) {
          platform.displayLink = parts->display;
          parts->application = std::dynamic_pointer_cast<PosixApplication>(platform.application);
        }),
        parts_(std::move(parts)) {
    service_->answers["/campaigns/c-1"] = {200, campaignReply(movingPage())};
    // Each test has its own URL, since files are kept in memory by their URLs.
    static int count = 0;
    name_ = "moving-" + std::to_string(++count) + ".gif";
    auto& page = service_->answers["/campaigns/c-1"].body;
    for (auto at = page.find("moving.gif"); at != page.npos; at = page.find("moving.gif")) {
      page.replace(at, 10, name_);
    }
  }

  static Service::Answer moving() {
    QFile file(QStringLiteral(ORRELO_TEST_DATA "/gif/front-colors.gif"));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    return {200, file.readAll().toStdString()};
  }
  void openPage(const Service::Answer& picture) {
    service_->answers["/" + name_] = picture;
    openPage();
    ASSERT_TRUE(waitFor([&] {
      return std::ranges::all_of(views(),
                                 [](const auto& view) { return view->state.value().image != nullptr; });
    }));
    settle();
  }
  void openPage() {
    showCampaign();
    ASSERT_TRUE(waitForNamed(entry));
    settle();
  }
  /// The block's image and the entry's.
  std::vector<std::shared_ptr<ImageView>> views() const {
    std::vector<std::shared_ptr<ImageView>> found;
    const auto screen = std::dynamic_pointer_cast<CampaignViewController>(host()->presentedViewController());
    const auto page = std::dynamic_pointer_cast<ModularCampaignView>(screen->state().content);
    for (const auto& arranged : page->stackView->arrangedSubviews) {
      if (auto image = std::dynamic_pointer_cast<ImageView>(arranged.view)) found.push_back(image);
      if (const auto* row = dynamic_cast<const PageEntryView*>(arranged.view.get())) {
        found.push_back(row->iconImageView);
      }
    }
    return found;
  }
  /// Ticks, and decodes the frames that the ticks ask for.
  void tick(int count) {
    for (int i = 0; i < count; ++i) {
      parts_->display->tick();
      QCoreApplication::sendPostedEvents(nullptr, QEvent::MetaCall);
    }
  }
  /// The colours in the middle of the block's image and of the entry's icon.
  std::vector<QColor> colors() const {
    const auto picture = window_->grabWindow();
    std::vector<QColor> found;
    for (const auto* const item : drawnBy("KitImage")) {
      if (item->size().isEmpty()) continue;
      found.push_back(picture.pixelColor(sceneRect(item).center().toPoint()));
    }
    for (const auto* const item : drawnBy("AutoLayoutImageView")) {
      found.insert(found.begin(), picture.pixelColor(sceneRect(item).center().toPoint()));
    }
    return found;
  }
  void scroll(double distance) {
    auto* const area = drawnBy("ModularCampaignView").front();
    area->setProperty("contentY", area->property("contentY").toDouble() + distance);
    window_->grabWindow();
  }
  bool moves() {
    const auto before = views().front()->frame.value();
    tick(12);
    return views().front()->frame.value() != before;
  }

  std::shared_ptr<Parts> parts_;
  std::string name_;
};

TEST_F(GifTest, EveryViewOfItShowsTheFrameOfTheTick) {
  openPage(moving());
  EXPECT_THAT(colors(), testing::ElementsAre(red, red));
  const auto place = sceneRect(drawnBy("AutoLayoutImageView").front());
  EXPECT_EQ(place.height(), 260.0) << "as high as its first frame at the page's width";
  tick(1);
  for (const auto& color : {red, green, blue, red, green}) {
    tick(3);
    EXPECT_THAT(colors(), testing::ElementsAre(color, color));
    tick(3);
  }
  EXPECT_EQ(sceneRect(drawnBy("AutoLayoutImageView").front()), place);
  grab("moving-pictures");
}

TEST_F(GifTest, PlaysOnlyWhileAPartOfItIsInSight) {
  openPage(moving());
  tick(1);
  EXPECT_TRUE(moves());
  scroll(230);
  EXPECT_TRUE(moves()) << "its lower edge is in sight";
  scroll(70);
  EXPECT_FALSE(views().front()->placement().isOnScreen);
  tick(2);
  EXPECT_FALSE(moves());
  scroll(-300);
  EXPECT_TRUE(moves());
  window_->hide();
  ASSERT_TRUE(waitFor([&] { return !views().front()->placement().isOnScreen; }));
  tick(2);
  EXPECT_FALSE(moves());
  window_->show();
  ASSERT_TRUE(waitFor([&] { return views().front()->placement().isOnScreen; }));
  EXPECT_TRUE(moves());
  const auto view = views().front();
  host()->dismiss(false);
  ASSERT_TRUE(waitFor([&] { return !view->placement().hasSuperview; }));
  tick(3);
  EXPECT_EQ(parts_->display->runningCount(), 0U) << "nobody plays";
}

TEST_F(GifTest, ReducedMotionWaitsForAButtonInTheCorner) {
  parts_->application->setPrefersReducedMotion(true);
  openPage(moving());
  EXPECT_FALSE(moves());
  const auto buttons = drawnBy("PlayButton");
  ASSERT_EQ(buttons.size(), 2U);
  const auto picture = sceneRect(drawnBy("AutoLayoutImageView").front());
  EXPECT_EQ(sceneRect(buttons.front()), QRectF(picture.bottomRight() - QPointF(44, 44), QSizeF(44, 44)));
  grab("moving-picture-waits");
  // The entry can be focused again after the button within it.
  const auto end = QStringLiteral("모으기");
  for (const auto& expected : {play, entry, play, end}) {
    press(Qt::Key_Tab);
    if (focusName() == back) press(Qt::Key_Tab);
    EXPECT_EQ(focusName().toStdString(), expected.toStdString());
  }
  for (const auto& [key, expected] : {std::pair(Qt::Key_Backtab, play),
                                      {Qt::Key_Backtab, play},
                                      {Qt::Key_Tab, entry},
                                      {Qt::Key_Backtab, play}}) {
    press(key);
    EXPECT_EQ(focusName().toStdString(), expected.toStdString());
  }
  press(Qt::Key_Return);
  ASSERT_EQ(drawnBy("PlayButton").size(), 1U);
  EXPECT_TRUE(moves());
  EXPECT_EQ(views().back()->frame.value(), nullptr) << "the entry's icon still waits";
  press(Qt::Key_Tab);
  EXPECT_EQ(focusName(), entry) << "the keyboard goes on from where the button was";
  const auto asked = service_->asked.size();
  const auto icon = sceneRect(drawnBy("PlayButton").front());
  QTest::mouseClick(window_, Qt::LeftButton, {}, icon.center().toPoint());
  EXPECT_TRUE(drawnBy("PlayButton").empty());
  tick(2);
  EXPECT_NE(views().back()->frame.value(), nullptr);
  EXPECT_EQ(service_->asked.size(), asked) << "the entry was not pressed";
  click(entry);
  EXPECT_TRUE(waitFor([&] { return service_->timesAsked("/campaigns/c-2") > 0; }));
}

TEST_F(GifTest, ASpinnerStandsForAPictureThatIsOnItsWay) {
  openPage();
  const auto spinners = drawnBy("ActivityIndicator");
  ASSERT_EQ(spinners.size(), 2U);
  EXPECT_TRUE(names().contains(spinner));
  grab("moving-picture-loads");
  service_->answerWaiting("/" + name_, {200, "GIF89a, and then nothing"});
  ASSERT_TRUE(waitFor([&] { return drawnBy("ActivityIndicator").empty(); }));
  EXPECT_TRUE(drawnBy("AutoLayoutImageView").empty()) << "takes no space";
  EXPECT_EQ(parts_->display->runningCount(), 0U);
}

}  // namespace
}  // namespace orrelo::test
