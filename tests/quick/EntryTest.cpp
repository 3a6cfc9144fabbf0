#include "QuickTest.h"
#include "platform/posix/PosixApplication.h"
#include "support/Reports.h"

#include <orrelo/quick/ORLCampaignEntryView.h>
#include <orrelo/quick/ORLCampaignFloatingActionButton.h>

#include <QAccessible>

namespace orrelo::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

const QString banner = QStringLiteral("오늘의 혜택 보러 가기");
const QString button = QStringLiteral("이벤트");
const QString tip = QStringLiteral("오늘 출석하면 100P를 드려요");

/// The host's page that contains the kit's entries, in QML alone.
class EntryTest : public QuickTest {
 protected:
  EntryTest() {
    service_->answers["/campaigns"] = {200, "[]"};
    service_->answers["/fab"] = {
        200,
        R"({"icon":"https://img.example/fab.png","color":"#4A5DF0","tool_tip":"오늘 출석하면 100P를 드려요"})"};
    service_->answers["/fab.png"] = {200, picture({56, 56}, Qt::transparent)};
    Orrelo::setUserEventDelegate(reports_);
  }

  void openPage(QSize size, double textScale = 1.0) {
    engine_ = std::make_unique<QQmlApplicationEngine>();
    QObject::connect(engine_.get(), &QQmlEngine::warnings, [](const QList<QQmlError>& faults) {
      for (const auto& fault : faults) ADD_FAILURE() << fault.toString().toStdString();
    });
    engine_->setInitialProperties(
        {{"width", size.width()}, {"height", size.height()}, {"textScale", textScale}});
    engine_->loadData(R"(
      import QtQuick
      import Orrelo
      Window {
        id: root
        property real textScale
        property alias entry: entry
        property alias banner: banner
        visible: true
        OrreloHost {
          anchors.fill: parent
          textScale: root.textScale
          Column {
            x: 20; y: 40; width: parent.width - 40; spacing: 16
            Text { objectName: "headline"; text: "가게"; font.pixelSize: 24 }
            OrreloCampaignEntryView {
              id: entry
              width: parent.width
              entryName: "shop page"
              Repeater { model: 1; Item {} }
              Rectangle {
                id: banner
                width: parent.width; height: 96; radius: 12; color: "#fff1d6"
                Text { objectName: "line"; anchors.centerIn: parent; text: "오늘의 혜택 보러 가기"; font.pixelSize: 18 }
              }
            }
            Text { objectName: "below"; text: "아래" }
          }
          OrreloCampaignFloatingActionButton { anchors { right: parent.right; bottom: parent.bottom } }
        }
      })");
    window_ = qobject_cast<QQuickWindow*>(engine_->rootObjects().value(0));
    ASSERT_NE(window_, nullptr);
    window_->requestActivate();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(window_));
  }
  static void signIn(const char* id) { Orrelo::setUser(ORLUser(id)); }
  /// Waits until the fades of the entry and of the button have been played.
  void waitForFades(double opacity) {
    const auto entries = window_->findChildren<quick::ORLCampaignEntryView*>();
    EXPECT_TRUE(waitFor([&] {
      return std::all_of(entries.begin(), entries.end(),
                         [=](const auto* entry) { return entry->opacity() == opacity; });
    }));
  }
  void tapBanner() {
    const auto place = sceneRect(window_->property("banner").value<QQuickItem*>());
    QTest::mouseClick(window_, Qt::LeftButton, {}, place.center().toPoint());
  }
  quick::ORLCampaignEntryView* entryItem() const {
    return window_->property("entry").value<QQuickItem*>()->findChild<quick::ORLCampaignEntryView*>();
  }
  std::vector<std::string> takeEvents() {
    std::vector<std::string> lines;
    for (const auto& event : std::exchange(reports_->events, {})) {
      if (!event.values || !event.values->contains("campaign_entry_point_name")) continue;
      lines.push_back(event.name + " " +
                      std::get<std::string>(event.values->at("campaign_entry_point_name").variant()));
    }
    return lines;
  }

  std::shared_ptr<Reports> reports_ = std::make_shared<Reports>();
};

TEST_F(EntryTest, AnEntryFollowsTheUser) {
  openPage({390, 844});
  EXPECT_NE(named(banner), nullptr) << "somebody is signed in";
  const auto below = sceneRect(window_->findChild<QQuickItem*>("below"));
  Orrelo::setUser(std::nullopt);
  ASSERT_TRUE(waitFor([&] { return !entryItem()->isEnabled(); }));
  tapBanner();
  EXPECT_THAT(takeEvents(), IsEmpty()) << "it takes no tap from the start of the fade";
  waitForFades(0.0);
  EXPECT_EQ(named(banner), nullptr);
  EXPECT_EQ(sceneRect(window_->findChild<QQuickItem*>("below")), below) << "its place is kept";
  press(Qt::Key_Tab);
  EXPECT_EQ(focusName(), QString());
  grab("entry-signed-out");
  signIn("u-2");
  waitForFades(1.0);
  EXPECT_THAT(takeEvents(),
              testing::UnorderedElementsAre("ol_campaign_entry_point_show shop page",
                                            "ol_campaign_entry_point_show default_floating_action_button"));
  grab("entry-390");
}

TEST_F(EntryTest, ReducedMotionHidesAndShowsAnEntryAtOnce) {
  const auto application = std::dynamic_pointer_cast<PosixApplication>(Platform::current().application);
  application->setPrefersReducedMotion(true);
  openPage({390, 844});
  Orrelo::setUser(std::nullopt);
  ASSERT_TRUE(waitFor([&] { return !entryItem()->isEnabled(); }));
  EXPECT_EQ(entryItem()->opacity(), 0.0);
  EXPECT_FALSE(entryItem()->isVisible());
  signIn("u-2");
  ASSERT_TRUE(waitFor([&] { return entryItem()->isEnabled(); }));
  EXPECT_EQ(entryItem()->opacity(), 1.0);
  EXPECT_TRUE(entryItem()->isVisible());
}

TEST_F(EntryTest, ATapAndTheKeyboardOpenHome) {
  openPage({390, 844});
  click(banner);
  ASSERT_TRUE(waitFor([&] { return host()->presentedViewController() != nullptr; }));
  EXPECT_EQ(host()->presentedViewController()->kind(), "HomeViewController");
  EXPECT_THAT(takeEvents(), ElementsAre("ol_campaign_entry_point_click shop page"));
  settle();
  press(Qt::Key_Escape);
  settle();
  press(Qt::Key_Tab);
  press(Qt::Key_Tab);
  EXPECT_EQ(focusName(), banner);
  EXPECT_FALSE(names().contains(button)) << "items without an area cannot be pressed";
  const auto renewed = QStringLiteral("새 혜택");
  window_->findChild<QQuickItem*>("line")->setProperty("text", renewed);
  EXPECT_EQ(focusName(), renewed);
  press(Qt::Key_Return);
  EXPECT_TRUE(waitFor([&] { return host()->presentedViewController() != nullptr; }));
}

TEST_F(EntryTest, TheFloatingButtonHasTheLookOfTheService) {
  for (const double scale : {1.0, 2.0}) {
    SCOPED_TRACE(scale);
    openPage({320, 568}, scale);
    EXPECT_EQ(named(button), nullptr) << "it waits for the next user";
    signIn("u-2");
    ASSERT_TRUE(waitForNamed(tip));
    auto* const tooltip = drawnBy("TooltipView").at(0);
    expectNothingCut();
    waitForFades(1.0);
    grab(scale == 1.0 ? "floating-button-320" : "floating-button-320-large-text");
    ASSERT_TRUE(QMetaObject::invokeMethod(tooltip, "faded"));
    EXPECT_EQ(named(tip), nullptr) << "the tooltip dismisses itself";
    click(button);
    ASSERT_TRUE(waitFor([&] { return host()->presentedViewController() != nullptr; }));
  }
  EXPECT_EQ(service_->timesAsked("/fab"), 1) << "the second button uses the stored look";
}

TEST_F(EntryTest, InCppAnyItemsOfTheSceneBecomeClickable) {
  open({390, 844});
  auto* const text = named("host");
  auto* const page = text->parentItem();
  quick::ORLCampaignEntryView entry(page);
  entry.setEntryName("shop");
  entry.setClickableViews({text, nullptr, text});
  EXPECT_EQ(entry.clickableViews(), QList<QQuickItem*>{text});
  click("host");
  ASSERT_TRUE(waitFor([&] { return host()->presentedViewController() != nullptr; }));
  EXPECT_THAT(takeEvents(), ElementsAre("ol_campaign_entry_point_click shop"));
  settle();
  press(Qt::Key_Escape);
  settle();
  text->setParentItem(nullptr);
  EXPECT_THAT(entry.clickableViews(), IsEmpty()) << "an item that leaves the scene is let go";
  text->setParentItem(page);
  auto* const gone = new QQuickItem(page);
  entry.setClickableViews({text, gone});
  delete gone;
  EXPECT_EQ(entry.clickableViews(), QList<QQuickItem*>{text});
  entry.setClickableViews({});
  settle();
  click("host");
  settle();
  EXPECT_EQ(host()->presentedViewController(), nullptr);
}

TEST_F(EntryTest, TheHostMayActOnTheEntryDuringATap) {
  class Acting final : public ORLUserEventDelegate {
   public:
    explicit Acting(std::function<void()> act) : act_(std::move(act)) {}
    void userEventDidOccur(const ORLUserEvent& event) override {
      if (event.name == "ol_campaign_entry_point_click") act_();
    }

   private:
    const std::function<void()> act_;
  };
  std::unique_ptr<quick::ORLCampaignEntryView> entry;
  const auto expectHome = [&](const QString& pressed, const std::function<void()>& act) {
    const auto acting = std::make_shared<Acting>(act);
    Orrelo::setUserEventDelegate(acting);
    click(pressed);
    EXPECT_TRUE(waitFor([&] { return host()->presentedViewController() != nullptr; }));
  };
  const auto makeEntry = [&] {
    entry.reset();
    open({390, 844});
    entry = std::make_unique<quick::ORLCampaignEntryView>(named("host")->parentItem());
    entry->setEntryName("shop");
    entry->setClickableViews({named("host")});
  };
  makeEntry();
  expectHome("host", [&] { entry->setClickableViews({}); });
  EXPECT_THAT(entry->clickableViews(), IsEmpty());
  makeEntry();
  expectHome("host", [&] { entry.reset(); });
  EXPECT_EQ(entry, nullptr);
  open({390, 844});
  entry = std::make_unique<quick::ORLCampaignFloatingActionButton>(window_->contentItem());
  entry->setSize({300, entry->implicitHeight()});
  signIn("u-2");
  ASSERT_TRUE(waitForNamed(button));
  expectHome(button, [&] { entry.reset(); });
  EXPECT_EQ(entry, nullptr);
}

TEST_F(EntryTest, TheButtonFollowsTheWidthOfItsWindow) {
  open({390, 844});
  QQuickWindow other;
  other.resize(200, 300);
  quick::ORLCampaignFloatingActionButton fab(window_->contentItem());
  const double whole = fab.implicitWidth();
  fab.setParentItem(other.contentItem());
  EXPECT_EQ(fab.implicitWidth(), 200.0);
  other.resize(250, 300);
  EXPECT_EQ(fab.implicitWidth(), 250.0);
  fab.setParentItem(window_->contentItem());
  EXPECT_EQ(fab.implicitWidth(), whole);
}

TEST_F(EntryTest, InCppTheButtonIsAnItemLikeAnyOther) {
  open({390, 844});
  {
    quick::ORLCampaignFloatingActionButton fab(window_->contentItem());
    fab.setSize({300, fab.implicitHeight()});
    EXPECT_EQ(fab.entryName(), QStringLiteral("default_floating_action_button"));
    EXPECT_EQ(fab.clickableViews().size(), 1);
    signIn("u-2");
    ASSERT_TRUE(waitForNamed(button));
    EXPECT_NEAR(sceneRect(named(button)).right(), 300 - 16, 0.5);
    click(button);
    ASSERT_TRUE(waitFor([&] { return host()->presentedViewController() != nullptr; }));
  }
  settle();
}

}  // namespace
}  // namespace orrelo::test
