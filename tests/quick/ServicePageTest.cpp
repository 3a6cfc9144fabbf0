#include "DevService.h"
#include "support/TemporaryFolder.h"

#include <QDir>
#include <QImage>
#include <QQmlApplicationEngine>
#include <QQuickItem>
#include <QQuickWindow>
#include <QTest>
#include <gtest/gtest.h>

namespace orrelo::test {
namespace {

/// A page of the local service in a browser window, used with mouse and keyboard.
class ServicePageTest : public testing::Test {
 protected:
  void open(const std::string& path) {
    service_.start();
    engine_.setInitialProperties({{"address", QString::fromStdString(service_.baseUrl() + path)}});
    engine_.loadData(R"(
      import QtQuick
      import QtQuick.Window
      import QtWebEngine
      Window {
        id: root
        property string address
        property var answer
        property int answers: 0
        property var errors: []
        function ask(script) { view.runJavaScript(script, value => { answer = value; ++answers }) }
        width: 1280
        height: 900
        visible: true
        WebEngineView {
          id: view
          anchors.fill: parent
          profile: WebEngineProfile { offTheRecord: true }
          url: root.address
          onCertificateError: error => error.acceptCertificate()
          onJavaScriptConsoleMessage: (level, message) => root.errors.push(message)
        }
      })");
    window_ = qobject_cast<QQuickWindow*>(engine_.rootObjects().value(0));
    ASSERT_NE(window_, nullptr);
    window_->requestActivate();
  }

  static bool waitFor(const std::function<bool()>& holds) { return QTest::qWaitFor(holds, 60'000); }
  /// The value of a script's expression in the page.
  QVariant valueOf(const QString& expression) {
    const auto before = window_->property("answers").toInt();
    QMetaObject::invokeMethod(window_, "ask", Q_ARG(QVariant, expression));
    EXPECT_TRUE(waitFor([&] { return window_->property("answers").toInt() > before; }));
    return window_->property("answer");
  }
  /// Waits for this text in the element.
  testing::AssertionResult shows(const QString& element, const QString& text) {
    QString shown;
    const bool found = waitFor([&] {
      shown = valueOf(QStringLiteral("document.querySelector(`%1`)?.innerText").arg(element)).toString();
      return shown.contains(text);
    });
    if (found) return testing::AssertionSuccess();
    return testing::AssertionFailure() << element.toStdString() << " shows " << shown.toStdString();
  }
  /// Waits until the page has been drawn as it is now, so that a click hits what has moved.
  void awaitFrame() {
    valueOf(QStringLiteral(
        "isDrawn = false; requestAnimationFrame(() => requestAnimationFrame(() => isDrawn = true))"));
    EXPECT_TRUE(waitFor([&] { return valueOf(QStringLiteral("isDrawn")).toBool(); }));
  }
  void click(const QString& element) {
    const auto found = QStringLiteral("document.querySelector(`%1`)").arg(element);
    valueOf(found + QStringLiteral(".scrollIntoView({block: 'center'})"));
    awaitFrame();
    const auto place = valueOf(QStringLiteral("(() => { const r = %1.getBoundingClientRect();"
                                              " return [r.x + r.width / 2, r.y + r.height / 2] })()")
                                   .arg(found))
                           .toList();
    ASSERT_EQ(place.size(), 2) << element.toStdString();
    QTest::mouseClick(window_, Qt::LeftButton, {}, QPoint(place[0].toInt(), place[1].toInt()));
  }
  void type(const QString& element, const char* text) {
    click(element);
    ASSERT_TRUE(waitFor([&] {
      return valueOf(QStringLiteral("document.activeElement === document.querySelector(`%1`)").arg(element))
          .toBool();
    }));
    for (; *text != '\0'; ++text) QTest::keyClick(window_, *text);
  }
  /// Saves a picture of the page for people to look at.
  void grab(const QString& name) {
    awaitFrame();
    const QDir folder(QStringLiteral(ORRELO_PICTURES));
    folder.mkpath(QStringLiteral("."));
    window_->grabWindow().save(folder.filePath(name + QStringLiteral(".png")));
  }
  /// The body that a client of this user gets.
  QString replyTo(const QString& path, const QString& user = QStringLiteral("minji")) {
    return valueOf(QStringLiteral("(() => { const r = new XMLHttpRequest(); r.open('GET', "
                                  "'/orreloservice/sdk/shop%1', false);"
                                  " r.setRequestHeader('buid', '%2'); r.send(); return r.responseText })()")
                       .arg(path, user))
        .toString();
  }

  TemporaryFolder folder_;
  devservice::DevService service_{
      {.dataDirectory = folder_.path(),
       .now = std::chrono::sys_days(std::chrono::May / 20 / 2026) + std::chrono::hours(3)}};
  QQmlApplicationEngine engine_;
  QQuickWindow* window_ = nullptr;
};

class AdminPageTest : public ServicePageTest {
 protected:
  void SetUp() override {
    open("/");
    ASSERT_TRUE(shows(QStringLiteral("#link"), QStringLiteral("Live")));
  }
};

const auto users = QStringLiteral("#users");
const auto problem = QStringLiteral("#wallet-problem");
const auto vouchers = QStringLiteral("#wallet-vouchers");

TEST_F(AdminPageTest, APersonChangesAUsersWallet) {
  EXPECT_TRUE(replyTo(QStringLiteral("/my-rewards")).contains(QStringLiteral(R"("point":4610)")));
  ASSERT_TRUE(shows(users, QStringLiteral("4,610 points · 2 tickets · 2 usable vouchers")));
  click(QStringLiteral("[data-owner]"));
  ASSERT_TRUE(shows(QStringLiteral("#wallet-title"), QStringLiteral("Wallet of minji")));
  ASSERT_TRUE(shows(QStringLiteral("#wallet-points"), QStringLiteral("4,610P")));
  for (const auto* const state : {"idle", "downloaded", "expired", "used", "canceled"}) {
    EXPECT_TRUE(shows(vouchers, QString::fromLatin1(state)));
  }
  EXPECT_TRUE(shows(QStringLiteral("#wallet-history"), QStringLiteral("+10P")));
  grab(QStringLiteral("admin-wallet"));

  type(QStringLiteral("#wallet [name=points]"), "-610");
  QTest::keyClick(window_, Qt::Key_Return);
  EXPECT_TRUE(shows(problem, QStringLiteral("\"points\" needs a \"title\"")));
  type(QStringLiteral("#wallet [data-wallet=points] [name=title]"), "Coffee");
  QTest::keyClick(window_, Qt::Key_Return);
  EXPECT_TRUE(shows(QStringLiteral("#wallet-points"), QStringLiteral("4,000P")));
  EXPECT_TRUE(shows(QStringLiteral("#wallet-history"), QStringLiteral("Coffee\n-610P")));
  EXPECT_TRUE(shows(QStringLiteral("#wallet-done"), QStringLiteral("has changed")));

  type(QStringLiteral("#wallet [name=tickets]"), "-3");
  click(QStringLiteral("#wallet [data-wallet=tickets] .main"));
  EXPECT_TRUE(shows(problem, QStringLiteral("the user has 2 tickets and cannot have -1")));
  grab(QStringLiteral("admin-wallet-refused"));

  type(QStringLiteral("#wallet [data-wallet=voucher] [name=title]"), "Cake");
  valueOf(
      QStringLiteral("document.querySelector('#wallet [name=date]').value = '2026-12-31';"
                     "document.querySelector('#wallet [name=state]').value = 'downloaded'"));
  click(QStringLiteral("#wallet [data-wallet=voucher] .main"));
  EXPECT_TRUE(shows(vouchers, QStringLiteral("Cake\ndownloaded\n쿠폰 · until 2026-12-31T23:59:59Z")));
  EXPECT_TRUE(
      replyTo(QStringLiteral("/gifticons")).startsWith(QStringLiteral(R"([{"date":"2026-12-31T23:59:59Z")")));

  QTest::keyClick(window_, Qt::Key_Escape);
  EXPECT_TRUE(
      waitFor([&] { return !valueOf(QStringLiteral("document.querySelector('#wallet').open")).toBool(); }));
  EXPECT_EQ(valueOf(QStringLiteral("document.activeElement.innerText")), QStringLiteral("Wallet"));
  EXPECT_TRUE(shows(users, QStringLiteral("4,000 points · 2 tickets · 3 usable vouchers")));
  EXPECT_EQ(window_->property("errors").toList(), QVariantList());
}

TEST_F(AdminPageTest, APersonSendsANotification) {
  const auto text = QStringLiteral("#notify [name=payload]");
  const auto choose = [&](const char* preset) {
    valueOf(QStringLiteral("notifyForm.elements.preset.value = '%1';"
                           "notifyForm.elements.preset.dispatchEvent(new Event('change'))")
                .arg(QString::fromLatin1(preset)));
    return valueOf(QStringLiteral("notifyForm.elements.payload.value")).toString();
  };
  const auto waiting = QStringLiteral("#notify-waiting");
  const auto token = QStringLiteral("T").repeated(300);
  replyTo(QStringLiteral("/my-rewards"));
  valueOf(QStringLiteral("fetch('/orreloservice/sdk/shop/token', {method: 'POST', body: JSON.stringify("
                         "{token: '%1', buid: 'minji'})})")
              .arg(token));
  ASSERT_TRUE(shows(users, token.left(80) + QStringLiteral("…")));
  ASSERT_TRUE(shows(users, QStringLiteral("No notification waiting")));

  click(QStringLiteral("[aria-label='Notify minji']"));
  ASSERT_TRUE(shows(QStringLiteral("#notify-title"), QStringLiteral("Notification to minji")));
  for (const auto* const preset : {"home", "deeplink", "destination", "unmarked", "campaign"}) {
    const auto payload = choose(preset);
    EXPECT_EQ(payload.contains(QStringLiteral("Orrelo\"")), std::string_view(preset) != "unmarked");
  }
  click(QStringLiteral("#notify .main"));
  EXPECT_TRUE(shows(waiting, QStringLiteral("1 waiting.")));
  grab(QStringLiteral("admin-notify"));
  valueOf(QStringLiteral("document.querySelector(`%1`).value = ''").arg(text));
  type(text, "[5]");
  click(QStringLiteral("#notify .main"));
  EXPECT_TRUE(shows(QStringLiteral("#notify-problem"), QStringLiteral("the payload must be an object")));
  QTest::keyClick(window_, Qt::Key_Escape);
  EXPECT_TRUE(shows(users, QStringLiteral("1 notification waiting")));
  EXPECT_EQ(valueOf(QStringLiteral("document.activeElement.innerText")), QStringLiteral("Notify"));

  valueOf(
      QStringLiteral("fetch('/admin/notifications?app=shop&user=minji', {method: 'DELETE'})"
                     ".then(r => r.json()).then(list => taken = list)"));
  EXPECT_TRUE(waitFor([&] {
    return valueOf(QStringLiteral("window.taken?.[0]?.campaignId")) == QStringLiteral("roulette");
  }));
  EXPECT_TRUE(shows(users, QStringLiteral("No notification waiting")));
  EXPECT_EQ(window_->property("errors").toList(), QVariantList());
}

TEST_F(AdminPageTest, AnOpenWalletFollowsWhatTheUserDoes) {
  window_->resize(400, 800);
  replyTo(QStringLiteral("/my-rewards"), QStringLiteral("jun"));
  ASSERT_TRUE(shows(users, QStringLiteral("jun")));
  replyTo(QStringLiteral("/my-rewards"));
  ASSERT_TRUE(shows(users, QStringLiteral("minji")));
  click(QStringLiteral("[aria-label='Wallet of minji']"));
  ASSERT_TRUE(shows(QStringLiteral("#wallet-points"), QStringLiteral("4,610P")));
  replyTo(QStringLiteral("/campaigns/attendance/check-in"));
  EXPECT_TRUE(shows(QStringLiteral("#wallet-points"), QStringLiteral("4,620P")));
  grab(QStringLiteral("admin-wallet-phone"));
  service_.stop();
  click(QStringLiteral("#wallet [data-wallet=tickets] .main"));
  EXPECT_TRUE(shows(problem, QStringLiteral("The service does not answer.")));

  QTest::keyClick(window_, Qt::Key_Escape);
  ASSERT_TRUE(
      waitFor([&] { return !valueOf(QStringLiteral("document.querySelector('#wallet').open")).toBool(); }));
  click(QStringLiteral("[aria-label='Wallet of jun']"));
  EXPECT_TRUE(shows(QStringLiteral("#wallet-title"), QStringLiteral("Wallet of jun")));
  EXPECT_TRUE(shows(problem, QStringLiteral("The service does not answer.")));
  EXPECT_TRUE(shows(QStringLiteral("#wallet-points"), QStringLiteral("–"))) << "not the other user's";
  EXPECT_EQ(valueOf(QStringLiteral("document.querySelectorAll('#wallet li, #wallet .main:enabled').length"))
                .toInt(),
            0);
}

TEST_F(ServicePageTest, TheExchangeOfTheScenarioTakesPointsAndGoesBackStepByStep) {
  const auto chosen = QStringLiteral("[data-step]:not([hidden]) h2");
  const auto balance = QStringLiteral("#balance");
  open("/pages/exchange.html?userID=minji#shop");
  ASSERT_TRUE(shows(balance, QStringLiteral("4,610P")));
  EXPECT_TRUE(shows(QStringLiteral("#whose"), QStringLiteral("minji님의 포인트")));
  valueOf(QStringLiteral(
      "messages = []; window.webkit = {messageHandlers: {Native: {postMessage: m => messages.push(m)}}}"));

  click(QStringLiteral("[data-points='500']"));
  EXPECT_TRUE(shows(chosen, QStringLiteral("이대로 바꿀까요?")));
  valueOf(QStringLiteral("history.back()"));
  EXPECT_TRUE(shows(chosen, QStringLiteral("얼마나 바꿀까요?")));
  click(QStringLiteral("[data-points='1000']"));
  EXPECT_TRUE(shows(QStringLiteral("[data-step]:not([hidden])"), QStringLiteral("1,000P")));
  click(QStringLiteral("#confirm"));
  EXPECT_TRUE(shows(chosen, QStringLiteral("전환을 마쳤어요")));
  EXPECT_TRUE(shows(balance, QStringLiteral("3,610P")));
  const auto rows = replyTo(QStringLiteral("/pointsystem/point-redemption-history?page=0"));
  EXPECT_TRUE(rows.contains(QStringLiteral(R"("point_amount":-1000,"title":"포인트 전환")")))
      << rows.toStdString();
  click(QStringLiteral("#finish"));
  EXPECT_TRUE(waitFor([&] { return valueOf(QStringLiteral("messages.join()")) == QStringLiteral("close"); }));
}

TEST_F(ServicePageTest, AnExchangeThatFailsLeadsBackToTheChoiceAndWithoutAUserThereIsNone) {
  const auto chosen = QStringLiteral("[data-step]:not([hidden])");
  const auto choice = QStringLiteral("얼마나 바꿀까요?");
  open("/pages/exchange.html?userID=minji#shop");
  ASSERT_TRUE(shows(QStringLiteral("#balance"), QStringLiteral("4,610P")));
  click(QStringLiteral("[data-points='1000']"));
  ASSERT_TRUE(shows(chosen, QStringLiteral("1,000P")));
  valueOf(QStringLiteral("fetch = () => Promise.reject()"));
  click(QStringLiteral("#confirm"));
  EXPECT_TRUE(shows(chosen, choice));
  EXPECT_TRUE(shows(chosen, QStringLiteral("지금은 바꿀 수 없어요.")));
  EXPECT_TRUE(valueOf(QStringLiteral("history.state === null")).toBool()) << "back leaves the page";
  click(QStringLiteral("[data-points='500']"));
  EXPECT_TRUE(shows(chosen, QStringLiteral("500P")));
  EXPECT_TRUE(valueOf(QStringLiteral("byId('problem').hidden")).toBool());

  valueOf(QStringLiteral("location.assign('/pages/exchange.html#shop')"));
  ASSERT_TRUE(shows(QStringLiteral("#whose"), QStringLiteral("로그인하지 않았어요")));
  EXPECT_TRUE(shows(chosen, choice));
  EXPECT_EQ(valueOf(QStringLiteral("document.querySelectorAll('[data-points]:enabled').length")).toInt(), 0);
  EXPECT_EQ(service_.requestCount("/my-point"), 1);
}

}  // namespace
}  // namespace orrelo::test
