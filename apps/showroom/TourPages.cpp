#include "Tour.h"

#include <QColor>

namespace orrelo::showroom {

using devservice::Fault;

void Tour::composedPage() {
  click(QStringLiteral("선물 상자 열기"));
  await(QStringLiteral("선물 상자가 도착했어요"));
  await(QStringLiteral("커피 쿠폰, 1,000명"));
  picture(QStringLiteral("A page that the service has put together, under a toast"));
  click(QStringLiteral("당첨 확률"));
  await(QStringLiteral("모든 선물의 확률은 같아요."));
  awaitGone(QStringLiteral("선물 상자가 도착했어요"));
  picture(QStringLiteral("Its tooltip; the toast has gone"));
  press(Qt::Key_End);
  picture(QStringLiteral("The rest of it"));
  click(QStringLiteral("가을 스탬프, 미션을 마치고 모으세요"));
  await(QStringLiteral("생일 등록하기"));
  picture(QStringLiteral("One of its entries leads to a stamp board, of whole rows alone"));
  require(find(QStringLiteral("숨은 미션")) == nullptr, QStringLiteral("the seventh mission is there"));
  click(QStringLiteral("뒤로"));
  awaitGone(QStringLiteral("생일 등록하기"));
  close();
}

void Tour::webPage() {
  click(QStringLiteral("축제 안내 보기"));
  await(QStringLiteral("축제가 시작되면 참여할 수 있어요"));
#ifdef SHOWROOM_HAS_WEB
  await([&] { return colorShare(window_.grabWindow(), QColor(0xC2, 0x41, 0x0C)) > 0.02; },
        QStringLiteral("the web page was not painted"));
  picture(QStringLiteral("A web page within a page of the kit's"));
#else
  picture(QStringLiteral("The place of a web page, in a host without a browser engine"));
#endif
  close();
}

void Tour::otherKinds() {
  click(QStringLiteral("혜택 알림"));
  await(QStringLiteral("알림 받으러 가기"));
  picture(QStringLiteral("A marketing campaign hands over to the host"));
  click(QStringLiteral("알림 받으러 가기"));
  require(window_.property("hasConsent").toBool(), QStringLiteral("the host was not asked"));
  close();
  const auto tomorrow = showroom_.service().orderFault(
      {.kind = Fault::Kind::body,
       .pathSuffix = "/campaigns/result",
       .body = R"({"id":"t","label":"","name":"","icon":"","page":{"page_type":"hologram","page_id":"p"}})"});
  click(QStringLiteral("이벤트 결과 보기"));
  await(QStringLiteral("업데이트하러 가기"));
  picture(QStringLiteral("A kind that this version does not know asks for an update"));
  showroom_.service().clearFault(tomorrow);
  close();
}

}  // namespace orrelo::showroom
