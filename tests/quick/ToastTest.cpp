#include "QuickTest.h"
#include "viewkit/ErrorViewController.h"

#include <QAccessible>

namespace orrelo::test {
namespace {

const QString arrived = QStringLiteral("선물 상자가 도착했어요. 오늘 자정까지 열어 보세요!");

const QString first = QStringLiteral("하나");
const QString second = QStringLiteral("둘");

class ToastTest : public QuickTest {
 protected:
  std::shared_ptr<ErrorViewController> presented() {
    auto screen = std::make_shared<ErrorViewController>("화면");
    host()->present(screen, false);
    return screen;
  }
  /// The toast with this message.
  QQuickItem* toast(const QString& message) const {
    auto* const label = named(message);
    return label != nullptr ? label->parentItem() : nullptr;
  }
};

TEST_F(ToastTest, AToastOfAPageIsAnAlertInTheMiddleOfTheScreen) {
  service_->answers["/campaigns/c-1"] = {
      200, campaignReply(R"({"page_type":"box","page_id":"p","page_details_v2":{"page_config":{"layout":{
        "toolbar":{"text":"선물 상자"},"component_order":["notice"],"dialog":{"toast":[
          {"text":"선물 상자가 도착했어요. 오늘 자정까지 열어 보세요!","color":"#1D3A5F"}]}}},
        "notice":[{"items":["상자는 하루에 한 번 열 수 있습니다."]}]}})")};
  for (const double scale : {1.0, 2.0}) {
    SCOPED_TRACE(scale);
    open({320, 568}, scale);
    showCampaign();
    ASSERT_TRUE(waitForNamed(arrived));
    EXPECT_EQ(toast(arrived)->objectName(), QStringLiteral("OrreloToast"));
    EXPECT_EQ(QAccessible::queryAccessibleInterface(toast(arrived))->role(), QAccessible::AlertMessage);
    expectNothingCut();
    const auto place = sceneRect(toast(arrived));
    EXPECT_NEAR(place.center().y(), 284.0, 1.0);
    EXPECT_LE(place.width(), 320 * 0.8 + 0.5);
    EXPECT_NEAR(place.center().x(), 160.0, 1.0);
    grab(scale == 1.0 ? "toast-320" : "toast-320-large-text");
  }
}

TEST_F(ToastTest, AToastGoesWhenItsFadeHasBeenPlayed) {
  const auto screen = presented();
  screen->toastLayer->showToast("하나", Color());
  screen->toastLayer->showToast("둘", Color());
  ASSERT_TRUE(waitForNamed(second));
  QObject* fade = nullptr;
  for (auto* const part : toast(first)->findChildren<QObject*>()) {
    if (part->inherits("QQuickSequentialAnimation")) fade = part;
  }
  ASSERT_NE(fade, nullptr);
  EXPECT_TRUE(fade->property("running").toBool());
  QMetaObject::invokeMethod(fade, "complete");
  EXPECT_EQ(named(first), nullptr);
  EXPECT_EQ(screen->toastLayer->toasts.value().size(), 1U);
  EXPECT_NE(named(second), nullptr) << "every toast fades on its own";
  screen->toastLayer->showToast("하나", Color());
  EXPECT_TRUE(waitForNamed(first)) << "it may be shown again";
}

TEST_F(ToastTest, AToastTakesNoTapsAndEndsWithItsScreen) {
  const auto screen = presented();
  screen->toastLayer->showToast("하나", Color());
  ASSERT_TRUE(waitForNamed(first));
  click(first);
  EXPECT_NE(named(first), nullptr);
  press(Qt::Key_Escape);
  EXPECT_EQ(host()->presentedViewController(), nullptr);
  EXPECT_TRUE(waitFor([&] { return named(first) == nullptr; }));
  EXPECT_TRUE(screen->toastLayer->toasts.value().empty());
}

}  // namespace
}  // namespace orrelo::test
