#include "Tour.h"

#include <QClipboard>
#include <QGuiApplication>

namespace orrelo::showroom {
namespace {

const QString open = QStringLiteral("친구 초대하기");
const QString copy = QStringLiteral("초대 코드 복사하기");
const QString copied = QStringLiteral("초대 코드가 복사되었습니다");
const QString share = QStringLiteral("초대 링크 공유하기");
const QString mail = QStringLiteral("메일 보내기");
const QString box = QStringLiteral("받은 초대코드를 입력하려면 여기👋");
const QString field = QStringLiteral("친구 추천코드를 입력하세요.");
const QString verify = QStringLiteral("인증");
const QString verified = QStringLiteral("인증 완료");
const QString authorize = QStringLiteral("친구 코드 입력 완료");
const QString wrong = QStringLiteral("없는 초대 코드예요. 다시 확인해 주세요.");
const QString friendReward = QStringLiteral("친구 초대 완료!");
const QString once = QStringLiteral("초대 코드는 한 번만 입력할 수 있어요.");

}  // namespace

void Tour::referral() {
  const auto code = friendsCode();
  enterCode(code);
  friendsReward();
  signInAs(QStringLiteral("minji"));
}

QString Tour::friendsCode() {
  signInAs(QStringLiteral("jun"));
  click(open);
  await(copy);
  click(copy);
  await(copied);
  picture(QStringLiteral("A friend copies his invitation code"));
  const auto code = QGuiApplication::clipboard()->text();
  require(find(code) != nullptr, QStringLiteral("what was copied is not the code on the page"));
  awaitGone(copied);
  click(share);
  await(mail);
  picture(QStringLiteral("He can share it, too"));
  press(Qt::Key_Escape);
  awaitGone(mail);
  close();
  return code;
}

void Tour::enterCode(const QString& code) {
  const auto& service = showroom_.service();
  const auto nonsense = QStringLiteral("NOBODY");
  signInAs(QStringLiteral("minji"));
  click(open);
  await(box);
  click(box);
  await(field);
  picture(QStringLiteral("The screen for a friend's code"));
  type(nonsense);
  click(verify);
  await(wrong);
  picture(QStringLiteral("Nobody has this code"));
  awaitGone(wrong);
  click(field);
  press(Qt::Key_End);
  for (qsizetype i = 0; i < nonsense.size(); ++i) press(Qt::Key_Backspace);
  type(code);
  click(verify);
  await(verified);
  picture(QStringLiteral("The friend's code is verified and stays as it is"));
  click(authorize);
  await(friendReward);
  picture(QStringLiteral("It has earned both of them a reward"));
  click(confirm);
  awaitGone(friendReward);
  await(box);
  require(find(field) == nullptr, QStringLiteral("the screen for the code is still there"));
  click(box);
  await(once);
  picture(QStringLiteral("A second code is not taken"));
  require(service.requestCount("/authorization") == 1, QStringLiteral("the code was not authorized once"));
  close();
}

void Tour::friendsReward() {
  signInAs(QStringLiteral("jun"));
  click(open);
  await(QStringLiteral("가입한 친구 1명"));
  picture(QStringLiteral("The friend sees who has joined"));
  close();
  openHome();
  await(QStringLiteral("내 포인트, 6610 P"));
  picture(QStringLiteral("His reward is in his wallet"));
  closeHome();
}

}  // namespace orrelo::showroom
