#include "Tour.h"

#include <algorithm>
#include <tuple>

namespace orrelo::showroom {
namespace {

using devservice::Fault;

const QString wheel =
    QStringLiteral("룰렛, 경품: 쿠폰 커피, 포인트 100P, 쿠폰 무료배송, 포인트 500P, 쿠폰 반값, 포인트 1000P");
const QString wheelThatStopped = QStringLiteral("결과: 포인트 1000P, ") + wheel;
const QString spin = QStringLiteral("룰렛 돌리기");
const QString spun = QStringLiteral("내일 다시 돌려 보세요");
const QString scratchedCard = QStringLiteral("스크래치 복권, 결과: 커피 쿠폰 당첨!");
const QString blockedCard = QStringLiteral("스크래치 복권");
const QString unlock = QStringLiteral("알림 켜기");

// The largest rotation of the item and those inside it, in degrees.
double rotationOf(const QQuickItem* item) {
  double rotation = item->rotation();
  for (const auto* child : item->childItems()) rotation = std::max(rotation, rotationOf(child));
  return rotation;
}

}  // namespace

void Tour::games() {
  roulette();
  scratchLottery();
  lockedLottery();
  emptyPage();
  gamesInSizes();
}

void Tour::roulette() {
  auto& service = showroom_.service();
  const auto open = QStringLiteral("룰렛 돌리러 가기");
  click(open);
  await(spin);
  picture(QStringLiteral("A wheel of fortune at rest"));
  service.orderFault({.kind = Fault::Kind::status, .pathSuffix = "/roulette/spin", .count = 1});
  click(spin);
  await(QStringLiteral("잠시 후 다시 시도해 주세요."));
  picture(QStringLiteral("Taking part fails"));
  close();

  click(open);
  await(spin);
  click(spin);
  constexpr double threeTurns = 3 * 360.0;
  await([&] { return find(wheel) != nullptr && rotationOf(find(wheel)) > threeTurns; },
        QStringLiteral("the wheel does not turn"));
  snapshot(QStringLiteral("It spins to where the service has said"));
  require(service.requestCount("/roulette/stop") == 0, QStringLiteral("the spin ended before its time"));
  await(QStringLiteral("축하합니다!"));
  picture(QStringLiteral("It has stopped, and earned a reward"));
  const auto loads = service.requestCount("/campaigns/roulette");
  click(confirm);
  await([&] { return service.requestCount("/campaigns/roulette") == loads + 1; },
        QStringLiteral("the page was not asked for again"));
  await(wheelThatStopped);
  await(spun);
  picture(QStringLiteral("Asked for again, the page is done for the day"));
  click(spun);
  require(service.requestCount("/roulette/spin") == 2, QStringLiteral("a disabled button takes part"));
  close();
}

void Tour::scratchLottery() {
  auto& service = showroom_.service();
  const auto open = QStringLiteral("복권 긁으러 가기");
  const auto noPicture =
      service.orderFault({.kind = Fault::Kind::status, .pathSuffix = "/images/lottery.png"});
  click(open);
  await(card);
  await([&] { return service.requestCount("/images/lottery.png") > 0; },
        QStringLiteral("the picture was not asked for"));
  picture(QStringLiteral("A picture that fails leaves no hole"));
  service.clearFault(noPicture);
  close();

  click(open);
  await(card);
  picture(QStringLiteral("A card to scratch"));
  drag(card, {{0.12, 0.5}, {0.34, 0.5}});
  picture(QStringLiteral("A part of it is rubbed off"));
  require(service.requestCount("/scratch/scratched") == 0, QStringLiteral("the card was done too early"));
  drag(card, {{0.1, 0.3}, {0.9, 0.3}});
  await(QStringLiteral("당첨!"));
  picture(QStringLiteral("Enough is gone: the result, and a reward"));
  click(confirm);
  await(scratchedCard);
  picture(QStringLiteral("Asked for again, the card stays open"));
  require(service.requestCount("/scratch/scratched") == 1, QStringLiteral("the service was not told once"));
  close();
}

void Tour::lockedLottery() {
  click(QStringLiteral("비밀 복권 열기"));
  await(blockedCard);
  picture(QStringLiteral("A card that this user may not scratch yet"));
  drag(blockedCard, {{0.2, 0.5}, {0.26, 0.5}});
  await(QStringLiteral("알림을 켜면 긁을 수 있어요"));
  snapshot(QStringLiteral("Rubbed, it stays whole, and the service says why"));
  awaitGone(QStringLiteral("알림을 켜면 긁을 수 있어요"));
  click(unlock);
  await(card);
  picture(QStringLiteral("Unlocked by the page's own button"));
  close();
}

void Tour::emptyPage() {
  click(QStringLiteral("이벤트 예고 보기"));
  await(QStringLiteral("준비 중인 이벤트"));
  picture(QStringLiteral("A page whose blocks did not come is empty"));
  close();
}

void Tour::gamesInSizes() {
  const auto original = window_.size();
  for (const auto& [open, what, caption] :
       {std::tuple{QStringLiteral("룰렛 돌리러 가기"), spun, QStringLiteral("The wheel")},
        std::tuple{QStringLiteral("비밀 복권 열기"), card, QStringLiteral("A card")}}) {
    click(open);
    await(what);
    window_.resize(320, 568);
    picture(caption + QStringLiteral(" on a small phone"));
    window_.setProperty("textScale", 2.0);
    picture(caption + QStringLiteral(" with text twice as large"));
    press(Qt::Key_End);
    picture(caption + QStringLiteral(" and what is below"));
    window_.setProperty("textScale", 1.0);
    window_.resize(original);
    close();
  }
}

}  // namespace orrelo::showroom
