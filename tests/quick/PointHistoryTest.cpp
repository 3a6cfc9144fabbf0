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
  void turnWheel(int notches) {
    const QPointF middle = list()->mapToScene({list()->width() / 2, list()->height() / 2});
    QWheelEvent event(middle, window_->mapToGlobal(middle), {}, {0, 120 * notches}, Qt::NoButton, {},
                      Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(window_, &event);
  }
};

TEST_F(PointHistoryTest, ShowsTheBalanceOverTheRows) {
  openHistory();
  grab("history-390");
  EXPECT_TRUE(names().contains(QStringLiteral("내 포인트, 1250 P")));
  EXPECT_TRUE(names().contains(QStringLiteral("11.11, 적립 1, 매일 출석체크 이벤트에서 받았어요, -100 P")));
  expectNothingCut();
}

}  // namespace
}  // namespace orrelo::test
