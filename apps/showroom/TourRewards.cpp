#include "Tour.h"

namespace orrelo::showroom {
namespace {

const QString idle = QStringLiteral("교환권, 아메리카노 1잔, 2026년 7월 19일까지 발급 가능, 발급하기");
const QString issued = QStringLiteral("교환권, 아메리카노 1잔, 2026년 7월 19일까지 사용 가능, 기프티콘 보기");
const QString canceled = QStringLiteral("금액권, 문화상품권 10,000원, 2026년 7월 4일, 발행 취소");
const QString barcode = QStringLiteral("기프티콘 이미지");
const QString newest = QStringLiteral("5.20, 비밀 복권, 5000포인트 당첨, 5000 P");
const QString oldest = QStringLiteral("4.20, 가입 축하, 파랑상점에 오신 것을 환영해요, 2000 P");

}  // namespace

void Tour::rewards() {
  openHome();
  pointHistory();
  vouchers();
  exchange();
  closeHome();
}

void Tour::pointHistory() {
  const auto& service = showroom_.service();
  click(QStringLiteral("내 포인트, 10620 P"));
  await(newest);
  picture(QStringLiteral("How the points came and went"));
  await(
      [&] {
        press(Qt::Key_End);
        return find(oldest) != nullptr;
      },
      QStringLiteral("the oldest movement did not appear"));
  picture(QStringLiteral("The oldest of them, on the third page"));
  require(service.requestCount("/point-redemption-history") >= 3,
          QStringLiteral("not three pages were asked for"));
  click(QStringLiteral("뒤로"));
  awaitGone(oldest);
}

void Tour::vouchers() {
  const auto& service = showroom_.service();
  click(QStringLiteral("기프티콘, 3"));
  await(canceled);
  picture(QStringLiteral("Vouchers in all their states"));
  click(idle);
  await(issued);
  picture(QStringLiteral("One of them is issued"));
  click(issued);
  await(barcode);
  picture(QStringLiteral("Its barcode"));
  press(Qt::Key_Plus);
  press(Qt::Key_Plus);
  picture(QStringLiteral("The barcode enlarged"));
  press(Qt::Key_Escape);
  awaitGone(barcode);
  require(service.requestCount("/gifticons/download") == 1, QStringLiteral("it was not issued once"));
  click(QStringLiteral("뒤로"));
  awaitGone(issued);
}

void Tour::exchange() {
  click(QStringLiteral("포인트 전환"));
#ifdef SHOWROOM_HAS_WEB
  // The buttons of the first step are pale until the page has the balance.
  const QColor choice(0x0C, 0x6B, 0x52);
  const QColor confirmation(0x8A, 0x4B, 0x08);
  const QColor end(0x2F, 0x55, 0x97);
  awaitColor(choice, QStringLiteral("the page of the exchange has not painted a balance"));
  picture(QStringLiteral("The page where points are exchanged"));
  click(choice);
  awaitColor(confirmation, QStringLiteral("the second step was not painted"));
  picture(QStringLiteral("Its second step"));
  click(confirmation);
  awaitColor(end, QStringLiteral("no points were exchanged"));
  picture(QStringLiteral("The points are exchanged"));
  click(end);
  await(QStringLiteral("내 포인트, 9620 P"));
  picture(QStringLiteral("The page has closed itself, and home shows the rest of the points"));
#else
  await(QStringLiteral("포인트 교환"));
  picture(QStringLiteral("The exchange of points, in a host without a browser engine"));
  press(Qt::Key_Escape);
  awaitGone(QStringLiteral("포인트 교환"));
#endif
}

}  // namespace orrelo::showroom
