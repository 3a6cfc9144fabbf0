#include "QuickTest.h"
#include "support/ServiceReplies.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QJsonDocument>
#include <QJsonObject>
#include <cstdlib>

namespace orrelo::test {
namespace {

const QString inspector = QStringLiteral("OrreloSDK inspector");

/// Set before the platform is made.
struct WantsInspector {
  WantsInspector() { ::setenv("ORRELO_INSPECTOR", "1", 1); }
  ~WantsInspector() { ::unsetenv("ORRELO_INSPECTOR"); }
};

class InspectorTest : private WantsInspector, public QuickTest {
 protected:
  static void toggle(QQuickWindow* window) {
    QTest::keyClick(window, Qt::Key_O, Qt::ControlModifier | Qt::ShiftModifier);
  }
  /// True once a row with this accessible name is shown.
  bool shows(const QString& row) { return waitForNamed(row); }
  /// The same for a row with a count.
  bool shows(const char* title, std::uint64_t count) {
    return shows(QStringLiteral("%1, %2").arg(title).arg(count));
  }
};

TEST_F(InspectorTest, ShowsTheSnapshotLiveOverEverything) {
  service_->answers["/campaigns/c-1"] = {200, campaignReply(R"({"page_type":"new","page_id":"p"})")};
  showCampaign();
  settle();
  host()->dismiss(false);
  named("host")->forceActiveFocus();
  QTest::keyClick(window_, Qt::Key_O, Qt::ControlModifier);
  EXPECT_EQ(named(inspector), nullptr);
  toggle(window_);
  ASSERT_TRUE(shows("Version, 1.0.0 (1)"));
  EXPECT_TRUE(shows("Source, service"));
  grab("inspector-overview-390");
  expectNothingCut();

  click("Events");
  // The counts are those of the process, in which other tests run, too.
  const auto before = Orrelo::diagnostics();
  EXPECT_TRUE(shows("Accepted", before.events.accepted));
  Orrelo::sendEvent("bought");
  EXPECT_TRUE(shows("Accepted", before.events.accepted + 1)) << "a second later";
  EXPECT_TRUE(waitFor([&] { return Orrelo::diagnostics().hostEvents.sent > before.hostEvents.sent; }));
  EXPECT_TRUE(shows("Sent", Orrelo::diagnostics().hostEvents.sent));
  grab("inspector-events-390");
  expectNothingCut();

  click("Pages");
  const auto pages = names().filter(QStringLiteral("/campaigns/c-1, 1 left out"));
  EXPECT_FALSE(pages.isEmpty());
  grab("inspector-pages-390");
  click("Requests");
  const auto rows = names().filter(QStringLiteral("GET /orreloservice/sdk/shop/campaigns/c-1, 200"));
  EXPECT_FALSE(rows.isEmpty()) << names().join(u'\n').toStdString();
  grab("inspector-requests-390");
  expectNothingCut();

  click("Copy JSON");
  const auto json = QJsonDocument::fromJson(QGuiApplication::clipboard()->text().toUtf8()).object();
  EXPECT_TRUE(json[QStringLiteral("isInitialized")].toBool());
  EXPECT_TRUE(shows("Copied"));
  toggle(window_);
  EXPECT_TRUE(waitFor([this] { return named(inspector) == nullptr; }));
}

TEST_F(InspectorTest, TakesAndReturnsTheInputInWindowsOfEverySize) {
  named("host")->forceActiveFocus();
  for (const auto size : {QSize(320, 568), QSize(1100, 760)}) {
    window_->resize(size);
    toggle(window_);
    ASSERT_TRUE(waitForNamed(inspector));
    for (int n = 0; n < 12; ++n) {
      EXPECT_NE(focusName(), "host") << "after " << n << " tabs";
      press(Qt::Key_Tab);
    }
    grab(QStringLiteral("inspector-%1").arg(size.width()));
    expectNothingCut();
    press(Qt::Key_Escape);
    EXPECT_TRUE(waitFor([this] { return named(inspector) == nullptr; }));
    EXPECT_EQ(focusName(), "host");
  }
  // A window of the host's own, without a screen of the kit.
  QQuickWindow plain;
  plain.resize(400, 300);
  plain.show();
  ASSERT_TRUE(QTest::qWaitForWindowExposed(&plain));
  toggle(&plain);
  EXPECT_EQ(plain.contentItem()->childItems().size(), 1);
  toggle(&plain);
  EXPECT_TRUE(waitFor([&] { return plain.contentItem()->childItems().isEmpty(); }));
  toggle(&plain);  // open when its window ends
}

}  // namespace
}  // namespace orrelo::test
