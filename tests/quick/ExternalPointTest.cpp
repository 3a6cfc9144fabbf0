#include "QuickTest.h"
#include "rewards/externalpoint/ExternalPointExchangeViewController.h"
#include "support/ExplanationCapture.h"
#include "support/LogCapture.h"

#include <orrelo/quick/ExternalPointEntryView.h>

#include <QPointingDevice>
#include <QQmlComponent>

namespace orrelo::test {
namespace {

using testing::Contains;
using testing::Each;
using testing::HasSubstr;

const QString message = QStringLiteral("모은 포인트를 교환해 보세요");
const QString label = QStringLiteral("교환하러 가기");

/// The exchange in a front without a browser engine.
class ExternalPointTest : public QuickTest {
 protected:
  /// Starts the kit with a service that enables the exchange or not.
  void initialize(bool isEnabled = true) {
    auto config = configReply();
    const auto replace = [&config](const std::string& former, const std::string& text) {
      config.replace(config.find(former), former.size(), text);
    };
    if (!isEnabled) replace(R"("is_enabled":true)", R"("is_enabled":false)");
    replace("\"포인트\"", "\"" + message.toStdString() + "\"");
    replace("\"교환\"", "\"" + label.toStdString() + "\"");
    service_->answers["/config"] = {200, config};
    Orrelo::initialize(ORLConfig("shop"));
  }
  bool isOpen() const {
    return std::dynamic_pointer_cast<ExternalPointExchangeViewController>(
               host()->presentedViewController()) != nullptr;
  }
  QQuickItem* place(QSize size, double textScale = 1.0) {
    open(size, textScale);
    auto* const item = quick::makeExternalPointEntryView(hostsItem());
    if (item != nullptr) item->setSize({size.width() - 40.0, 0.0});
    return item;
  }
  QQuickItem* hostsItem() const { return named(QStringLiteral("host"))->parentItem(); }
};

TEST_F(ExternalPointTest, WithoutABrowserTheScreenIsWhiteAndCanBeLeft) {
  initialize();
  const LogCapture log;
  const ExplanationCapture explanations;
  Orrelo::showNaverPayExchange(host());
  ASSERT_TRUE(waitFor([&] { return isOpen(); }));
  EXPECT_THAT(log.lines(), Contains(HasSubstr("Route to NaverPay Exchanage success")));
  const auto picture = grab("exchange-without-browser");
  EXPECT_THAT(explanations.lines(), Contains(HasSubstr("orrelo::quick::initializeWeb()")).Times(1));
  EXPECT_EQ(count(picture.copy(0, 0, 390, 390), Qt::white), 390 * 390);
  ASSERT_EQ(drawnBy("ActivityIndicator").size(), 1U);
  const auto* const indicator = drawnBy("ActivityIndicator").front();
  EXPECT_EQ(QRectF(indicator->position(), indicator->size()), QRectF(170, 397, 50, 50)) << "it turns";
  press(Qt::Key_Escape);
  EXPECT_FALSE(isOpen());
  ASSERT_TRUE(waitFor([&] { return drawnBy("ActivityIndicator").empty(); }));
  Orrelo::showNaverPayExchange(host());
  ASSERT_TRUE(waitFor([&] { return isOpen(); }));
  settle();
  const std::unique_ptr<QPointingDevice> finger(QTest::createTouchDevice());
  // Events must not be processed in between, since the time of a swipe is limited.
  auto touch = QTest::touchEvent(window_, finger.get(), false);
  touch.press(0, {100, 400}, window_).commit(false);
  touch.move(0, {200, 400}, window_).commit(false);
  touch.release(0, {200, 400}, window_).commit(false);
  EXPECT_FALSE(isOpen()) << "a swipe leaves";
}

TEST_F(ExternalPointTest, TheEntryViewShowsThePluginsTextsAndOpensTheExchange) {
  initialize();
  auto* const entry = place({390, 844});
  ASSERT_NE(entry, nullptr);
  const auto name = message + QLatin1Char(' ') + label;
  ASSERT_TRUE(waitForNamed(name));
  entry->setHeight(entry->implicitHeight());
  entry->setPosition({20, 60});
  expectNothingCut();
  grab("exchange-entry");
  named(name)->forceActiveFocus(Qt::TabFocusReason);
  press(Qt::Key_Return);
  EXPECT_TRUE(isOpen());
}

TEST_F(ExternalPointTest, TheEntryViewFitsANarrowWindowWithLargeText) {
  initialize();
  auto* const entry = place({320, 568}, 2.0);
  ASSERT_TRUE(waitForNamed(message + QLatin1Char(' ') + label));
  entry->setHeight(entry->implicitHeight());
  entry->setPosition({20, 60});
  expectNothingCut();
  grab("exchange-entry-large-text");
}

TEST_F(ExternalPointTest, TheEntryViewTakesNoRoomWhereTheExchangeIsDisabled) {
  initialize(false);
  auto* const entry = place({390, 844});
  ASSERT_NE(entry, nullptr);
  const LogCapture log;
  // The second call ends after the view has received the configuration, which the first has stored.
  for (int call = 1; call <= 2; ++call) {
    Orrelo::showNaverPayExchange(host());
    ASSERT_TRUE(waitFor([&] { return std::ssize(log.lines()) >= call; }));
  }
  EXPECT_THAT(log.lines(), Each(HasSubstr("Route to NaverPay Exchanage error")));
  settle();
  EXPECT_FALSE(entry->isVisible());
  EXPECT_EQ(entry->implicitWidth(), 0.0);
  EXPECT_EQ(entry->implicitHeight(), 0.0);
  const ExplanationCapture explanations;
  EXPECT_EQ(quick::makeExternalPointEntryView(nullptr), nullptr);
  EXPECT_THAT(explanations.lines(), Contains(HasSubstr("makeExternalPointEntryView was given no parent")));
}

TEST_F(ExternalPointTest, TheParentOfTheEntryViewMayBeAnyItem) {
  initialize();
  open({390, 844});
  QQuickWindow plain;
  for (auto* const parent : {window_->contentItem(), plain.contentItem()}) {
    const auto* const entry = quick::makeExternalPointEntryView(parent);
    ASSERT_NE(entry, nullptr);
    EXPECT_TRUE(waitFor([&] { return entry->implicitHeight() > 40.0; }));
  }
}

TEST_F(ExternalPointTest, AHostPlacesTheEntryViewInQml) {
  initialize();
  QQmlComponent component(engine_.get());
  component.setData("import QtQuick\nimport Orrelo\nColumn { OrreloExternalPointEntryView { width: 300 } }",
                    QUrl());
  const std::unique_ptr<QQuickItem> column(qobject_cast<QQuickItem*>(component.create()));
  ASSERT_NE(column, nullptr) << component.errorString().toStdString();
  EXPECT_EQ(column->height(), 0.0) << "not in a window yet";
  column->setParentItem(window_->contentItem());
  EXPECT_TRUE(waitFor([&] { return column->height() > 40.0; }));
}

}  // namespace
}  // namespace orrelo::test
