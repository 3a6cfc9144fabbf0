#include "QuickTest.h"
#include "accessibleItems.h"

#include <QAccessible>
#include <QQuickItem>
#include <algorithm>

namespace orrelo::test {
namespace {

const QString title = QStringLiteral("내 히스토리");
const QString loading = QStringLiteral("불러오는 중");
const QString failed = QStringLiteral("잠시 후 다시 시도해주세요.");
const std::string historyPath = "/point-redemption-history";

std::string row(int id, const std::string& text, const std::string& body, const std::string& date,
                std::int64_t amount) {
  return R"({"id":)" + std::to_string(id) + R"(,"title":")" + text + R"(","description":")" + body +
         R"(","date":")" + date + R"(","point_amount":)" + std::to_string(amount) + "}";
}

/// Rows "적립 <first>" and so on, gained and spent in turn.
std::string page(int first, int count) {
  std::string rows;
  for (int i = first; i < first + count; ++i) {
    rows += (i > first ? "," : "") + row(i, "적립 " + std::to_string(i), "매일 출석체크 이벤트에서 받았어요",
                                         "2026-11-" + std::to_string(10 + i % 9) + "T09:00:00+09:00",
                                         i % 3 == 1 ? -100 * i : 10 * i);
  }
  return "[" + rows + "]";
}

/// The balance and the history over a real kit.
class PointHistoryTest : public QuickTest {
 protected:
  PointHistoryTest() {
    auto config = configReply();
    const std::string entries = R"("entries":[)";
    config.insert(config.find(entries) + entries.size(),
                  R"({"id":"history","destination_type":"pointRedemptionHistory","destination":""},)");
    service_->answers["/config"] = {200, config};
    service_->answers["/my-point"] = {
        200,
        R"({"amount":1250,"description":"내 포인트","point_unit":"P","icon_url":"https://cdn.example/gift.png"})"};
    service_->answers[historyPath] = {200, page(0, 20)};
    Orrelo::initialize(ORLConfig("shop"));
    Orrelo::setUser(ORLUser("u-1", ORLMarketingStatus::unknown, {}));
  }

  void openHistory() {
    Orrelo::showPage("history");
    ASSERT_TRUE(waitForNamed(title));
    ASSERT_TRUE(waitFor([this] { return named(loading) == nullptr && rowCount() != 0; }));
    settle();
  }
  QQuickItem* list() const {
    QQuickItem* found = nullptr;
    screenreader::visitVisible(window_->contentItem(), [&](QQuickItem* item) {
      if (item->objectName() == QLatin1String("history")) found = item;
    });
    return found;
  }
  int rowCount() const { return list() != nullptr ? list()->property("count").toInt() : 0; }
  double contentY() const { return list()->property("contentY").toDouble(); }
  int timesAsked() const { return service_->timesAsked(historyPath); }
  bool waitForRows(int count) {
    return waitFor([&] { return rowCount() == count; });
  }
  bool isWheelAtRest() const { return list()->parentItem()->property("isWheelAtRest").toBool(); }
  bool waitForWheelAtRest() {
    return waitFor([this] { return isWheelAtRest(); });
  }
  double beginning() const { return list()->property("originY").toDouble(); }
  void turnWheel(int notches) {
    const QPointF middle = list()->mapToScene({list()->width() / 2, list()->height() / 2});
    QWheelEvent event(middle, window_->mapToGlobal(middle), {}, {0, 120 * notches}, Qt::NoButton, {},
                      Qt::NoScrollPhase, false);
    // A list does not scroll for a turn at the time of the one before.
    wheelTime_ += 20;
    event.setTimestamp(wheelTime_);
    QCoreApplication::sendEvent(window_, &event);
  }

  quint64 wheelTime_ = 1000;
};

TEST_F(PointHistoryTest, FitsPhonesAndDesktops) {
  service_->answers[historyPath] = {
      200, "[" + row(1, "11월 출석 보너스", "일곱 번 출석하고 받은 포인트", "2026-11-17T09:00:00Z", 100) +
               "," + row(2, "포인트 전환", "", "2026-11-09T09:00:00Z", -12'000) + "," +
               row(3, "아주 긴 제목을 가진 캠페인에서 받은 포인트라서 두 줄이 되는 적립",
                   "설명도 한 줄로는 모자라서 다음 줄로 "
                   "이어지는 경우입니다",
                   "언젠가", 9'223'372'036'854'775'807) +
               "," + page(4, 12).substr(1)};
  openHistory();
  grab("history-390");
  EXPECT_TRUE(names().contains(QStringLiteral("내 포인트, 1250 P")));
  EXPECT_TRUE(names().contains(QStringLiteral("11.9, 포인트 전환, -12000 P")));
  expectNothingCut();
  struct Place {
    QSize size;
    double textScale;
    QString name;
  };
  for (const auto& [size, scale, name] :
       {Place{{320, 568}, 1.0, "history-320"}, Place{{320, 568}, 2.0, "history-320-large-text"},
        Place{{1280, 800}, 1.0, "history-desktop"}}) {
    open(size, scale);
    openHistory();
    grab(name);
    expectNothingCut();
    press(Qt::Key_PageDown);
    grab(name + "-below");
    expectNothingCut();
  }
}

TEST_F(PointHistoryTest, EveryWayToAskForMoreAppendsTheNextPageAndMovesNothing) {
  openHistory();
  ASSERT_EQ(timesAsked(), 1);
  for (int i = 0; i < 4; ++i) press(Qt::Key_Down);
  settle();
  const auto place = contentY();
  EXPECT_GT(place, 0.0);
  int rows = 20;
  const auto expectPage = [&](const std::function<void()>& ask, const std::string& way) {
    service_->answers[historyPath] = {200, page(rows, 5)};
    ask();
    rows += 5;
    EXPECT_TRUE(waitForRows(rows)) << way;
    settle();
  };
  expectPage([this] { press(Qt::Key_F5); }, "F5");
  expectPage(
      [this] {
        auto* const reader = QAccessible::queryAccessibleInterface(list())->actionInterface();
        EXPECT_TRUE(reader->actionNames().contains(QAccessibleActionInterface::nextPageAction()));
        reader->doAction(QAccessibleActionInterface::nextPageAction());
      },
      "a screen reader");
  EXPECT_EQ(contentY(), place);
  press(Qt::Key_Home);
  ASSERT_TRUE(waitForWheelAtRest());
  expectPage([this] { turnWheel(1); }, "a wheel beyond the beginning");
  const auto pull = [this](int distance) {
    const auto start = list()->mapToScene({list()->width() / 2, 40}).toPoint();
    QTest::mousePress(window_, Qt::LeftButton, {}, start);
    for (int y = 0; y <= distance; y += 10) QTest::mouseMove(window_, start + QPoint(0, y), 10);
    grab("history-pull");
    QTest::mouseRelease(window_, Qt::LeftButton, {}, start + QPoint(0, distance));
  };
  const auto hasReturned = [this] {
    return contentY() == beginning() && !list()->property("moving").toBool();
  };
  expectPage([&] { pull(200); }, "a pull");
  ASSERT_TRUE(waitFor(hasReturned));
  const auto asked = timesAsked();
  pull(40);
  ASSERT_TRUE(waitFor(hasReturned));
  EXPECT_EQ(timesAsked(), asked) << "a short pull";
}

TEST_F(PointHistoryTest, AWheelAsksOncePerTurnAndOnlyFromAnEnd) {
  openHistory();
  service_->answers[historyPath] = {200, "[]"};
  press(Qt::Key_End);
  ASSERT_TRUE(waitFor([this] { return timesAsked() == 2; })) << "the last row is in sight";
  ASSERT_TRUE(waitForWheelAtRest());
  for (int i = 0; i < 5; ++i) turnWheel(-1);
  settle();
  EXPECT_EQ(timesAsked(), 3);
  ASSERT_GT(contentY(), beginning());
  ASSERT_TRUE(waitFor([this] {
    const bool hasArrived = contentY() == beginning();
    if (hasArrived && !isWheelAtRest()) return true;
    // A slow machine may let the wheel come to rest; the list then scrolls once more.
    if (hasArrived) press(Qt::Key_End);
    if (!list()->property("moving").toBool()) turnWheel(5);
    return false;
  }));
  for (int i = 0; i < 5; ++i) turnWheel(1);
  settle();
  EXPECT_EQ(timesAsked(), 3) << "a turn that has scrolled the list";
}

TEST_F(PointHistoryTest, ManyRowsCostTheDelegatesOnTheScreen) {
  const auto hundred = [](int first) {
    auto rows = page(first, 98);
    rows.pop_back();
    return rows + "," + row(first + 98, "언제 " + std::to_string(first), "", "언젠가", 1) + "," +
           row(first + 99, "끝 " + std::to_string(first), "", "2026-11-30T00:00:00Z", 1) + "]";
  };
  service_->answers[historyPath] = {200, hundred(0)};
  openHistory();
  for (int rows = 100; rows <= 1000; rows += 100) {
    ASSERT_TRUE(waitForRows(rows)) << rowCount();
    service_->answers[historyPath] = {200, rows < 1000 ? hundred(rows) : "[]"};
    press(Qt::Key_End);
    settle();
    const auto first = QString::number(rows - 100);
    EXPECT_EQ(names().count(QStringLiteral("11.30, 끝 %1, 1 P").arg(first)), 1);
    EXPECT_EQ(names().count(QStringLiteral("언제 %1, 1 P").arg(first)), 1) << "its date cannot be read";
  }
  EXPECT_EQ(timesAsked(), 11);
  EXPECT_LT(list()->property("contentItem").value<QQuickItem*>()->childItems().size(), 60);
  press(Qt::Key_Home);
  settle();
  EXPECT_TRUE(names().contains(QStringLiteral("11.10, 적립 0, 매일 출석체크 이벤트에서 받았어요, 0 P")));
}

TEST_F(PointHistoryTest, SaysThatItIsEmptyOrHasFailedAndGoesOn) {
  service_->answers[historyPath] = {200, "[]"};
  Orrelo::showPage("history");
  ASSERT_TRUE(waitForNamed(QStringLiteral("적립 내역이 없습니다.")));
  grab("history-empty");
  open({320, 568}, 2.0);
  Orrelo::showPage("history");
  ASSERT_TRUE(waitForNamed(QStringLiteral("적립 내역이 없습니다.")));
  grab("history-empty-320-large-text");
  expectNothingCut();

  service_->answers[historyPath] = {200, page(0, 3)};
  press(Qt::Key_F5);
  ASSERT_TRUE(waitForRows(3));
  ASSERT_TRUE(waitFor([this] { return named(loading) == nullptr; }));
  service_->answers[historyPath] = {500, ""};
  press(Qt::Key_F5);
  ASSERT_TRUE(waitForNamed(failed));
  grab("history-failed-320-large-text");
  EXPECT_TRUE(names().filter(QStringLiteral("적립")).isEmpty()) << "the rows beneath are out of reach";
  expectNothingCut();
  service_->answers.erase(historyPath);
  ASSERT_TRUE(waitForWheelAtRest());
  turnWheel(-1);
  EXPECT_TRUE(waitForNamed(loading));
  grab("history-loading");
  EXPECT_EQ(named(failed), nullptr);
  service_->answerWaiting(historyPath, {200, page(3, 1)});
  EXPECT_TRUE(waitForRows(4));
}

TEST_F(PointHistoryTest, TextsOfAMebibyteLeaveTheListUsable) {
  const std::string longText(std::size_t{1024} * 1024, 'x');
  service_->answers["/my-point"] = {200, R"({"amount":-9223372036854775808,"description":")" + longText +
                                             R"(","point_unit":")" + longText + R"(","icon_url":")" +
                                             longText + R"("})"};
  service_->answers[historyPath] = {
      200, "[" + row(1, longText, longText, longText, 1) + "," + row(2, "다음", "", "", 2) + "]"};
  openHistory();
  grab("history-huge-texts");
  const auto lastCell = [this]() -> QQuickItem* {
    const auto cells = drawnBy("PointRedemptionHistoryViewCell");
    return cells.empty() ? nullptr : cells.back();
  };
  EXPECT_TRUE(waitFor([&] {
    press(Qt::Key_End);
    settle();
    auto* const cell = lastCell();
    return cell != nullptr && screenreader::nameOf(cell).startsWith(QStringLiteral("다음, 2 x")) &&
           cell->height() <= 200.0;
  }));
}

TEST_F(PointHistoryTest, TheKeyboardScrollsAndLeaves) {
  openHistory();
  EXPECT_EQ(focusName(), title);
  press(Qt::Key_Tab);
  EXPECT_EQ(focusName(), back);
  press(Qt::Key_PageDown);
  settle();
  EXPECT_GT(contentY(), 400.0);
  press(Qt::Key_PageUp);
  press(Qt::Key_Up);
  settle();
  EXPECT_EQ(contentY(), 0.0);
  const auto asked = timesAsked();
  window_->hide();
  settle();
  window_->show();
  ASSERT_TRUE(QTest::qWaitForWindowExposed(window_));
  settle();
  EXPECT_EQ(timesAsked(), asked) << "no new appearance";
  press(Qt::Key_Escape);
  EXPECT_TRUE(waitFor([this] { return list() == nullptr; }));
}

}  // namespace
}  // namespace orrelo::test
