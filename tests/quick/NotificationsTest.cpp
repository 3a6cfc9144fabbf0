#include "QuickTest.h"
#include "apps/showroom/Notifications.h"

namespace orrelo::test {
namespace {

class NotificationsTest : public QuickTest {
 protected:
  NotificationsTest() {
    QObject::connect(&notifications_, &showroom::Notifications::handled, [this] { ++handled_; });
  }
  /// The title and the text of the banner.
  QStringList banner() const {
    return notifications_.isShown() ? QStringList{notifications_.title(), notifications_.text()}
                                    : QStringList();
  }

  showroom::Notifications notifications_;
  int handled_ = 0;
};

TEST_F(NotificationsTest, EachWaitsForItsTurnInTheBannerButASilentOneGoesToTheKitAtOnce) {
  const EventDictionary alert{{"title", "선물"}, {"body", "도착했어요"}};
  notifications_.receive(
      {{"Orrelo", true}, {"destination", "home"}, {"aps", EventDictionary{{"alert", alert}}}});
  notifications_.receive({{"aps", EventDictionary{{"alert", "가게의 소식"}}}});
  EXPECT_EQ(handled_, 0);
  notifications_.receive({{"Orrelo", nullptr}, {"aps", EventDictionary{{"content-available", 1}}}});
  EXPECT_EQ(handled_, 1);
  EXPECT_EQ(banner(), (QStringList{"선물", "도착했어요"}));

  notifications_.open();
  EXPECT_EQ(handled_, 2);
  EXPECT_EQ(banner(), (QStringList{"파랑상점", "가게의 소식"}));
  notifications_.open();
  EXPECT_EQ(handled_, 2) << "the kit leaves the host's own notification alone";
  EXPECT_EQ(banner(), QStringList());
  notifications_.open();
  notifications_.remove();
  EXPECT_EQ(handled_, 2);
}

}  // namespace
}  // namespace orrelo::test
