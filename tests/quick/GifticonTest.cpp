#include "QuickTest.h"

#include <QBuffer>
#include <QPainter>
#include <QPointingDevice>
#include <QWheelEvent>

namespace orrelo::test {
namespace {

const QString loading = QStringLiteral("불러오는 중");
const QString failed = QStringLiteral("잠시 후 다시 시도해주세요.");
const QString empty = QStringLiteral("사용할 수 있는 기프티콘이 없습니다.");
const QString closing = QStringLiteral("닫기");
const QString barcode = QStringLiteral("기프티콘 이미지");

const QString idle = QStringLiteral("별빛다방, 아이스 아메리카노, 2026년 12월 31일까지 발급 가능, 발급하기");
const QString issued =
    QStringLiteral("별빛다방, 아이스 아메리카노, 2026년 12월 31일까지 사용 가능, 기프티콘 보기");
const QString published = QStringLiteral(
    "달콤제과, 생크림 케이크 교환권 (매장 수령 전용), 2026년 12월 1일까지 사용 가능, 기프티콘 보기");
const QString expired = QStringLiteral("동네편의점, 5천원권, 2025년 1월 1일에 만료, 기간 만료");
const QString used = QStringLiteral("별빛다방, 카페라떼, 2026년 3월 1일, 사용 완료");
const QString canceled = QStringLiteral("동네편의점, 만원권, 2026년 5월 5일, 발행 취소");

std::string row(const std::string& id, const std::string& tag, const std::string& title,
                const std::string& date, const std::string& state, const std::string& more = "") {
  return R"({"id":")" + id + R"(","tag_text":")" + tag + R"(","title":")" + title + R"(","date":")" + date +
         R"(T00:00:00Z","state":")" + state + "\"" + more + "}";
}

constexpr auto picture = R"(,"image_url":"https://cdn.example/barcode.png")";

std::string listOf(const std::string& firstState) {
  const bool isIssued = firstState == "downloaded";
  return "[" +
         row("g-1", "별빛다방", "아이스 아메리카노", "2026-12-31", firstState, isIssued ? picture : "") +
         "," +
         row("g-2", "달콤제과", "생크림 케이크 교환권 (매장 수령 전용)", "2026-12-01", "downloaded",
             picture) +
         "," + row("g-3", "동네편의점", "5천원권", "2025-01-01", "expired") + "," +
         row("g-4", "별빛다방", "카페라떼", "2026-03-01", "used") + "," +
         row("g-5", "동네편의점", "만원권", "2026-05-05", "canceled") + "]";
}

/// A picture as a service sends it: bars and a number in a high resolution.
std::string barcodePicture() {
  QImage image(1200, 1600, QImage::Format_RGB32);
  image.fill(QColor("#fff4dc"));
  QPainter painter(&image);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  painter.setBrush(QColor("#7b4b2a"));
  painter.drawRoundedRect(QRectF(450, 250, 300, 420), 40, 40);
  painter.fillRect(QRect(100, 900, 1000, 400), Qt::white);
  for (int x = 160; x < 1040; x += 8 + (x * 7) % 23)
    painter.fillRect(QRect(x, 950, 4 + (x * 5) % 9, 300), Qt::black);
  painter.end();
  QBuffer file;
  image.save(&file, "PNG");
  return file.data().toStdString();
}

class GifticonTest : public QuickTest {
 protected:
  GifticonTest() {
    auto config = configReply();
    const std::string entries = R"("entries":[)";
    config.insert(config.find(entries) + entries.size(),
                  R"({"id":"vouchers","destination_type":"gifticon","destination":""},)");
    service_->answers["/config"] = {200, config};
    service_->answers["/gifticons"] = {200, listOf("idle")};
    service_->answers["/gifticons/download"] = {200, listOf("downloaded")};
    service_->answers["/barcode.png"] = {200, barcodePicture()};
    Orrelo::initialize(ORLConfig("shop"));
    Orrelo::setUser(ORLUser("u-1", ORLMarketingStatus::unknown, {}));
  }

  void openList() {
    Orrelo::showPage("vouchers");
    ASSERT_TRUE(waitForNamed(back));
  }
  void openDetail() {
    openList();
    ASSERT_TRUE(waitForNamed(published));
    settle();
    click(published);
    ASSERT_TRUE(waitForNamed(barcode));
    settle();
  }
  /// The place of the enlarged picture, in the window.
  QRectF pictureRect() const {
    for (const auto* const child : named(barcode)->childItems()) {
      if (child->inherits("orrelo::quick::BitmapItem")) return sceneRect(child);
    }
    return {};
  }
};

TEST_F(GifticonTest, TheListShowsEachStateAndIssuesAVoucher) {
  openList();
  ASSERT_TRUE(waitForNamed(idle));
  EXPECT_EQ(named(loading), nullptr);
  EXPECT_NE(named(QStringLiteral("기프티콘")), nullptr);
  grab("gifticon-390");
  const auto shown = names();
  for (const auto& each : {published, expired, used, canceled})
    EXPECT_TRUE(shown.contains(each)) << each.toStdString();

  for (const auto& final : {expired, used, canceled}) click(final);
  settle();
  EXPECT_EQ(host()->presentedViewController()->presentedViewController(), nullptr);
  EXPECT_EQ(service_->timesAsked("/gifticons/download"), 0);

  const auto issue = service_->answers.extract("/gifticons/download").mapped();
  click(idle);
  EXPECT_TRUE(waitForNamed(loading)) << "the list stays below the indicator";
  EXPECT_NE(named(idle), nullptr);
  grab("gifticon-issuing");
  service_->answerWaiting("/gifticons/download", issue);
  EXPECT_TRUE(waitForNamed(issued));
  EXPECT_EQ(named(loading), nullptr);
  EXPECT_EQ(service_->timesAsked("/gifticons"), 1);
}

TEST_F(GifticonTest, AnEmptyListSaysSoAndAnErrorKeepsTheRows) {
  service_->answers["/gifticons/download"] = {500, ""};
  openList();
  ASSERT_TRUE(waitForNamed(idle));
  click(idle);
  ASSERT_TRUE(waitForNamed(failed));
  grab("gifticon-error");
  EXPECT_NE(named(idle), nullptr);
  service_->answers["/gifticons/download"] = {200, "[]"};
  click(idle);
  ASSERT_TRUE(waitForNamed(empty));
  EXPECT_TRUE(waitFor([&] { return named(idle) == nullptr; }));
  grab("gifticon-empty");
  press(Qt::Key_Escape);
  EXPECT_TRUE(waitFor([&] { return named(back) == nullptr; }));
}

TEST_F(GifticonTest, FitsPhonesAndDesktops) {
  struct Place {
    QSize size;
    double textScale;
    QString name;
  };
  for (const auto& [size, scale, name] :
       {Place{{320, 568}, 1.0, "320"}, Place{{320, 568}, 2.0, "320-large-text"},
        Place{{1280, 800}, 1.0, "desktop"}}) {
    open(size, scale);
    openDetail();
    expectNothingCut();
    grab("gifticon-detail-" + name);
    press(Qt::Key_Escape);
    ASSERT_TRUE(waitForNamed(idle));
    expectNothingCut();
    grab("gifticon-" + name);
    press(Qt::Key_End);
    expectNothingCut();
    grab("gifticon-" + name + "-end");
  }
}

TEST_F(GifticonTest, TheKeyboardWalksAndUsesTheList) {
  openList();
  ASSERT_TRUE(waitForNamed(idle));
  press(Qt::Key_Tab);
  if (focusName() != back) press(Qt::Key_Tab);
  EXPECT_EQ(focusName(), back);
  press(Qt::Key_Tab);
  QStringList order{focusName()};
  for (int i = 0; i < 5; ++i) {
    press(Qt::Key_Down);
    order.push_back(focusName());
  }
  EXPECT_EQ(order, QStringList({idle, published, expired, used, canceled, canceled}));
  grab("gifticon-focus");
  press(Qt::Key_Tab);
  EXPECT_EQ(focusName(), back) << "the list is one stop";
  press(Qt::Key_Backtab);
  press(Qt::Key_Home);
  EXPECT_EQ(focusName(), idle);
  press(Qt::Key_Return);
  ASSERT_TRUE(waitForNamed(issued));
  EXPECT_EQ(focusName(), issued) << "the row that was issued keeps the focus";
  press(Qt::Key_Space);
  ASSERT_TRUE(waitForNamed(barcode));
  EXPECT_EQ(focusName(), closing);
  press(Qt::Key_Return);
  EXPECT_TRUE(waitForNamed(issued));
  EXPECT_EQ(focusName(), issued);
}

TEST_F(GifticonTest, AThousandVouchersCostOnlyTheRowsInSight) {
  std::string rows;
  for (int i = 0; i < 1000; ++i) {
    rows += (i > 0 ? "," : "") +
            row(std::to_string(i), "별빛다방", "쿠폰 " + std::to_string(i), "2026-12-31", "used");
  }
  service_->answers["/gifticons"] = {200, "[" + rows + "]"};
  openList();
  const auto cell = [](int i) {
    return QStringLiteral("별빛다방, 쿠폰 %1, 2026년 12월 31일, 사용 완료").arg(i);
  };
  ASSERT_TRUE(waitForNamed(cell(0)));
  settle();
  EXPECT_LE(drawnBy("GifticonViewCell").size(), 30U);
  press(Qt::Key_Tab);
  if (focusName() == back) press(Qt::Key_Tab);
  press(Qt::Key_End);
  EXPECT_TRUE(waitForNamed(cell(999)));
  settle();
  EXPECT_EQ(focusName(), cell(999));
  grab("gifticon-thousand-end");
}

TEST_F(GifticonTest, ThePictureIsEnlargedAndMovedInEveryWay) {
  openDetail();
  const auto fitting = pictureRect();
  EXPECT_NEAR(fitting.width() / fitting.height(), 0.75, 0.01);
  grab("gifticon-detail-390");
  for (const auto key : {Qt::Key_Plus, Qt::Key_Equal}) press(key);
  EXPECT_NEAR(pictureRect().width(), fitting.width() * 1.5625, 0.5);
  press(Qt::Key_Right);
  EXPECT_NEAR(pictureRect().center().x(), fitting.center().x() - 48, 0.5);
  press(Qt::Key_Minus);
  press(Qt::Key_Minus);
  press(Qt::Key_Minus);
  EXPECT_EQ(pictureRect(), fitting) << "never smaller than the screen";

  const auto spot = fitting.center().toPoint() + QPoint(40, 60);
  QWheelEvent wheel(spot, window_->mapToGlobal(spot), {}, {0, 240}, Qt::NoButton, Qt::NoModifier,
                    Qt::NoScrollPhase, false);
  QCoreApplication::sendEvent(window_, &wheel);
  EXPECT_NEAR(pictureRect().width(), fitting.width() * 1.5625, 0.5);
  EXPECT_NEAR(pictureRect().center().x(), fitting.center().x() - 40 * 0.5625, 1.0)
      << "the spot stays in its place";
  const auto before = pictureRect();
  QTest::mousePress(window_, Qt::LeftButton, {}, spot);
  for (int i = 1; i <= 6; ++i) QTest::mouseMove(window_, spot + QPoint(10 * i, 0));
  QTest::mouseRelease(window_, Qt::LeftButton, {}, spot + QPoint(60, 0));
  EXPECT_GT(pictureRect().x(), before.x() + 20.0);
  QTest::mouseDClick(window_, Qt::LeftButton, {}, spot);
  EXPECT_EQ(pictureRect(), fitting);

  static auto* const screen = QTest::createTouchDevice();
  const auto middle = fitting.center().toPoint();
  const QPoint finger(30, 0);
  QTest::touchEvent(window_, screen).press(0, middle - finger, window_).press(1, middle + finger, window_);
  for (int i = 1; i <= 8; ++i) {
    const auto spread = finger * (4 + i) / 4;
    QTest::touchEvent(window_, screen).move(0, middle - spread, window_).move(1, middle + spread, window_);
    settle();  // Qt Quick delivers only the last movement of a frame
  }
  QTest::touchEvent(window_, screen)
      .release(0, middle - finger * 3, window_)
      .release(1, middle + finger * 3, window_);
  EXPECT_GT(pictureRect().width(), fitting.width() * 1.5);
  grab("gifticon-detail-enlarged");
  click(closing);
  EXPECT_TRUE(waitForNamed(published));
  EXPECT_EQ(service_->timesAsked("/gifticons"), 1) << "the list does not load again";
}

TEST_F(GifticonTest, APictureThatCannotBeLoadedSaysSoAndCanBeLeft) {
  service_->answers["/barcode.png"] = {404, ""};
  openList();
  ASSERT_TRUE(waitForNamed(published));
  settle();
  click(published);
  ASSERT_TRUE(waitForNamed(failed));
  EXPECT_EQ(named(barcode), nullptr);
  EXPECT_EQ(named(loading), nullptr);
  grab("gifticon-detail-failed");
  press(Qt::Key_Back);
  EXPECT_TRUE(waitForNamed(published));
}

}  // namespace
}  // namespace orrelo::test
