#include "QuickTest.h"
#include "platform/posix/PosixApplication.h"
#include "support/ExplanationCapture.h"
#include "support/Reports.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QQmlComponent>
#include <fstream>

namespace orrelo::test {
namespace {

using testing::Contains;
using testing::ElementsAre;

const QString copyButton = QStringLiteral("내 코드 복사하기");
const QString shareButton = QStringLiteral("초대 링크 공유하기");
const QString box = QStringLiteral("받은 초대코드를 입력하려면 여기👋");
const QString field = QStringLiteral("친구 추천코드를 입력하세요.");
const QString verifyButton = QStringLiteral("인증");
const QString authorizeButton = QStringLiteral("친구 코드 입력 완료");
const QString sheetCopy = QStringLiteral("복사");
const QString sheetMail = QStringLiteral("메일 보내기");
const QString rewarded = QStringLiteral("축하해요");
const auto shown = "ol_referral_navigation_view_show";

/// A text of 10,000 letters with line breaks and pictograms.
QString longCode() {
  return QStringLiteral("두\n줄🎁").append(QString(10'000, QLatin1Char('W')));
}

class ReferralQuickTest : public QuickTest {
 protected:
  ReferralQuickTest() {
    Orrelo::setUserEventDelegate(reports_);
    std::ifstream file(ORRELO_TEST_DATA "/campaign/referral.json");
    const std::string campaign{std::istreambuf_iterator<char>(file), {}};
    service_->answers["/campaigns/c-1"] = {200, campaign};
    service_->answers["/campaigns"] = {200, "[" + campaign + "]"};
    answerVerification(true);
    service_->answers["/authorize"] = {200, R"({"result":true,"message":null,"reward_message":
        {"title":"축하해요","body":"500P를 받았어요.","button_text":"확인"}})"};
    const auto application = std::dynamic_pointer_cast<PosixApplication>(Platform::current().application);
    application->setUrlOpener({.canOpen = [](const Url&) { return false; },
                               .open = [this](const Url& url) { opened_.push_back(url.text()); }});
  }
  ~ReferralQuickTest() override { Orrelo::setUserEventDelegate(nullptr); }

  void answerVerification(bool isVerified) {
    service_->answers["/verify"] = {
        200, isVerified ? R"({"result":true,"message":null})"
                        : R"({"result":false,"message":"없는 코드예요. 다시 확인해 주세요."})"};
  }
  void openPage(QSize size = {390, 844}, double textScale = 1.0) {
    open(size, textScale);
    showCampaign();
    ASSERT_TRUE(waitForNamed(copyButton));
    settle();
  }
  void openScreen(QSize size = {390, 844}, double textScale = 1.0) {
    openPage(size, textScale);
    for (int i = 0; i < 10 && focusName() != box; ++i) press(Qt::Key_Tab);
    press(Qt::Key_Return);
    ASSERT_TRUE(waitForNamed(field));
    settle();
  }
  void type(const QString& text) {
    QGuiApplication::clipboard()->setText(text);
    QTest::keyClick(window_, Qt::Key_V, Qt::ControlModifier);
  }
  /// Replaces the items of the host and of all screens, which live on.
  void remakeItems() {
    delete drawnBy("OrreloHost").at(0);
    QQmlComponent host(engine_.get());
    host.setData("import QtQuick\nimport Orrelo\nOrreloHost { anchors.fill: parent }", {});
    auto* const item =
        host.createWithInitialProperties({{"parent", QVariant::fromValue(window_->contentItem())}});
    item->setParent(window_->contentItem());  // its owner
  }
  /// Checks and saves the screen at the smallest size with both text scales.
  void onSmallScreens(const QString& name, const std::function<void(double)>& look) {
    for (const double scale : {1.0, 2.0}) {
      SCOPED_TRACE(scale);
      look(scale);
      expectNothingCut();
      grab(name + (scale == 1.0 ? "-320" : "-320-large-text"));
    }
  }

  std::shared_ptr<Reports> reports_ = std::make_shared<Reports>();
  std::vector<std::string> opened_;
};

TEST_F(ReferralQuickTest, ThePageCopiesTheCodeAndReportsItsBoxOnceItIsInSight) {
  onSmallScreens("referral-page", [&](double scale) {
    reports_->names.clear();
    openPage({320, 568}, scale);
    const auto timesShown = [&] { return std::count(reports_->names.begin(), reports_->names.end(), shown); };
    EXPECT_EQ(timesShown(), scale == 1.0 ? 1 : 0) << "large text moves it below the screen's edge";
    for (int i = 0; i < 60 && timesShown() == 0; ++i) {
      press(Qt::Key_Down);
      settle();
    }
    press(Qt::Key_End);
    expectNothingCut();
    grab(scale == 1.0 ? "referral-page-320-end" : "referral-page-320-large-text-end");
    press(Qt::Key_Home);
    settle();
    press(Qt::Key_End);
    settle();
    EXPECT_EQ(timesShown(), 1);
    press(Qt::Key_Home);
  });
  reports_->names.clear();
  openPage();
  grab("referral-page-390");
  EXPECT_THAT(reports_->names, Contains(shown)) << "in sight at once";
  click(copyButton);
  EXPECT_TRUE(waitForNamed(QStringLiteral("초대 코드가 복사되었습니다")));
  EXPECT_EQ(QGuiApplication::clipboard()->text(), QStringLiteral("MINJI-2026"));
  grab("referral-page-copied");
}

TEST_F(ReferralQuickTest, TheSheetCopiesMailsAndIsLeftInEveryWay) {
  onSmallScreens("share-sheet", [&](double scale) {
    open({320, 568}, scale);
    Platform::current().application->share("민지의 초대 코드: MINJI-2026\nhttps://shop.example/join");
    ASSERT_TRUE(waitForNamed(sheetCopy));
    settle();
    EXPECT_EQ(focusName(), sheetCopy);
  });
  openPage();
  const auto share = [&] {
    click(shareButton);
    return waitForNamed(sheetMail);
  };
  const auto isGone = [&] { return waitFor([&] { return named(sheetMail) == nullptr; }); };
  ASSERT_TRUE(share());
  grab("share-sheet-390");
  click(sheetCopy);
  ASSERT_TRUE(isGone());
  EXPECT_THAT(QGuiApplication::clipboard()->text().toStdString(), testing::HasSubstr("MINJI-2026\nhttps://"));
  ASSERT_TRUE(share());
  press(Qt::Key_Tab);
  EXPECT_EQ(focusName(), sheetMail);
  press(Qt::Key_Return);
  ASSERT_TRUE(isGone());
  EXPECT_THAT(opened_, ElementsAre(testing::HasSubstr("MINJI-2026%0D%0Ahttps%3A%2F%2F")));
  ASSERT_TRUE(share());
  press(Qt::Key_Escape);
  ASSERT_TRUE(isGone());
  ASSERT_TRUE(share());
  QTest::mouseClick(window_, Qt::LeftButton, {}, {195, 100});
  EXPECT_TRUE(isGone());
}

using DesktopQuickTest = QuickTest;

TEST_F(DesktopQuickTest, AUrlThatNoProgramTakesIsLoggedByItsSchemeAlone) {
  const ExplanationCapture log;
  Platform::current().application->open(*Url::parse("mailto:?body=MINJI-2026"));
  EXPECT_THAT(log.lines(), ElementsAre(testing::AllOf(testing::HasSubstr("scheme \"mailto\""),
                                                      testing::Not(testing::HasSubstr("MINJI")))));
}

TEST_F(ReferralQuickTest, ACodeIsEnteredByKeysAlone) {
  openScreen();
  EXPECT_EQ(focusName(), field);
  grab("referral-screen-390");
  type(QStringLiteral("FRIEND-1"));
  answerVerification(false);
  press(Qt::Key_Return);
  ASSERT_TRUE(waitForNamed(QStringLiteral("없는 코드예요. 다시 확인해 주세요.")));
  grab("referral-screen-refused");
  answerVerification(true);
  press(Qt::Key_Tab);
  EXPECT_EQ(focusName(), verifyButton);
  press(Qt::Key_Space);  // held back for two seconds after the first
  ASSERT_TRUE(waitForNamed(QStringLiteral("인증 완료")));
  EXPECT_EQ(focusName(), authorizeButton) << "the button that was pressed is disabled now";
  EXPECT_FALSE(named(field)->isEnabled());
  grab("referral-screen-verified");
  press(Qt::Key_Return);
  ASSERT_TRUE(waitForNamed(rewarded));
  grab("referral-screen-rewarded");
  press(Qt::Key_Return);
  EXPECT_TRUE(waitForNamed(copyButton)) << "the card and the screen are both gone";
  EXPECT_EQ(named(field), nullptr);
}

TEST_F(ReferralQuickTest, AnyTextStaysInTheFieldsOneLine) {
  onSmallScreens("referral-screen", [&](double scale) { openScreen({320, 568}, scale); });
  // An emoji's font makes the line higher.
  type(QStringLiteral("🎁"));
  settle();
  const auto oneLine = sceneRect(named(field));
  press(Qt::Key_Tab);
  press(Qt::Key_Backtab);
  QTest::keyClick(window_, Qt::Key_A, Qt::ControlModifier);
  type(longCode());
  settle();
  expectNothingCut();
  grab("referral-screen-long-code");
  EXPECT_NEAR(sceneRect(named(field)).height(), oneLine.height(), 1.0);
  EXPECT_EQ(sceneRect(named(field)).width(), oneLine.width());
  EXPECT_EQ(named(field)->property("text").toString().size(), longCode().size());
  remakeItems();
  ASSERT_TRUE(waitForNamed(field));
  EXPECT_EQ(named(field)->property("text").toString().size(), longCode().size());
  settle();
  click(field);
  QTest::keyClick(window_, Qt::Key_A, Qt::ControlModifier);
  press(Qt::Key_Delete);
  click(verifyButton);
  EXPECT_TRUE(waitForNamed(QStringLiteral("코드를 입력해주세요.")));
  expectNothingCut();
}

}  // namespace
}  // namespace orrelo::test
