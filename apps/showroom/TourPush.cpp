#include "Tour.h"

namespace orrelo::showroom {
namespace {

const QString signIn = QStringLiteral("민지로 로그인");
const QString mission = QStringLiteral("생일 등록하기");
const QString shopBanner = QStringLiteral("알림, 스탬프가 기다려요, 세 개만 더 모으면 선물을 드려요");

}  // namespace

void Tour::coldStart() {
  await(mission);
  picture(QStringLiteral("A tapped notification has started the application: its campaign opens"));
  close();
  require(showroom_.user() == QStringLiteral("minji"), QStringLiteral("the last user is not back"));
  awaitGone(QStringLiteral("오늘의 선물이 도착했어요"));
  click(QStringLiteral("로그아웃"));
  await(signIn);
  settle();  // the entries take a second to disappear
}

void Tour::notification() {
  click(QStringLiteral("알림 받기"));
  await(shopBanner);
  picture(QStringLiteral("A notification arrives, in the host's own design"));
  click(shopBanner);
  await(mission);
  awaitGone(shopBanner);
  picture(QStringLiteral("Its tap opens the campaign"));
  close();
}

}  // namespace orrelo::showroom
