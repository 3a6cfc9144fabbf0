#include "Tour.h"

namespace orrelo::showroom {
namespace {

using devservice::Fault;

const QString banner = QStringLiteral("오늘의 혜택 모두 보기");
const QString lockedCard = QStringLiteral("알림을 켜면 열리는 복권, 비밀 복권");
const QString points = QStringLiteral("내 포인트, 5620 P");
const QString morePoints = QStringLiteral("내 포인트, 10620 P");

constexpr auto noPlugins = R"({"sdk_enable":true,"notification_polling_interval":75000,
    "auto_swipe_interval":4000,"push_service_setting":"Polling",
    "color":{"main":"#1290FF","sub1":"#66B9FF","sub2":"#0076DE"},
    "plugins":{"pointsystem":false,"gifticon":false,
      "naverpay":{"is_enabled":false,"entry_view_message":"","exchange_text":"","landing_url":""}},
    "entries":[]})";
constexpr auto oneCampaign = R"([{"id":"stamp","label":"","name":"","icon":"",
    "page":{"page_type":"stamp","page_id":"p"}}])";

}  // namespace

void Tour::home() {
  click(banner);
  await(points);
  await(lockedCard);
  picture(QStringLiteral("Home: the balance, what else there is to win, and the campaigns"));
  winFromHome();
  closeHome();
  homeInSizes();
}

void Tour::winFromHome() {
  click(lockedCard);
  await(card);
  drag(card, {{0.1, 0.3}, {0.9, 0.3}, {0.9, 0.7}, {0.1, 0.7}});
  await(QStringLiteral("당첨!"));
  picture(QStringLiteral("A campaign opened from home, and its reward"));
  click(confirm);
  awaitGone(QStringLiteral("당첨!"));
  click(QStringLiteral("뒤로"));
  await(morePoints);
  press(Qt::Key_Home);
  picture(QStringLiteral("Back at home the balance has grown"));
}

void Tour::homeInSizes() {
  const auto original = window_.size();
  openHome();
  await(morePoints);
  window_.resize(320, 568);
  picture(QStringLiteral("Home on a small phone"));
  window_.setProperty("textScale", 2.0);
  picture(QStringLiteral("Home with text twice as large"));
  window_.setProperty("textScale", 1.0);
  window_.resize(1100, 760);
  picture(QStringLiteral("Home in a desktop window"));
  window_.resize(original);
  closeHome();
}

void Tour::otherHomes() {
  listThatIsEmptyOrFails();
  auto& service = showroom_.service();

  orderNoPluginsAnd("[]");
  openHome();
  await(QStringLiteral("진행 중인 캠페인이 없습니다."));
  picture(QStringLiteral("No plugins and no campaigns: home says so"));
  require(find(morePoints) == nullptr, QStringLiteral("the balance is there without the point system"));
  closeHome();
  service.clearFaults();

  orderNoPluginsAnd(oneCampaign);
  click(QStringLiteral("혜택 홈 열기"));
  await(QStringLiteral("생일 등록하기"));
  picture(QStringLiteral("No plugins and one campaign: home is skipped"));
  close();
  service.clearFaults();
  showroom_.letConfigurationExpire();
}

void Tour::listThatIsEmptyOrFails() {
  auto& service = showroom_.service();
  openHome();
  await(lockedCard);
  const auto empty =
      service.orderFault({.kind = Fault::Kind::body, .pathSuffix = "/campaigns", .body = "[]"});
  press(Qt::Key_F5);
  await(QStringLiteral("진행 중인 캠페인이 없습니다."));
  picture(QStringLiteral("No campaigns; the rewards stay"));
  service.clearFault(empty);
  const auto failing = service.orderFault({.kind = Fault::Kind::status, .pathSuffix = "/campaigns"});
  press(Qt::Key_F5);
  await(QStringLiteral("잠시 후 다시 시도해 주세요."));
  picture(QStringLiteral("The campaigns fail; the rewards stay"));
  service.clearFault(failing);
  press(Qt::Key_F5);
  await(lockedCard);
  closeHome();
}

void Tour::orderNoPluginsAnd(const std::string& campaigns) {
  auto& service = showroom_.service();
  service.orderFault({.kind = Fault::Kind::body, .pathSuffix = "/config", .body = noPlugins});
  service.orderFault({.kind = Fault::Kind::body, .pathSuffix = "/campaigns", .body = campaigns});
  showroom_.letConfigurationExpire();
}

void Tour::openHome() {
  click(QStringLiteral("혜택 홈 열기"));
  await(QStringLiteral("이벤트"));
}

void Tour::closeHome() {
  close();
  await(banner);
}

void Tour::shopsOwnPage() {
#ifdef SHOWROOM_HAS_WEB
  const QColor join(0xB5, 0x44, 0x6E);
  click(QStringLiteral("로그아웃"));
  await(QStringLiteral("민지로 로그인"));
  awaitGone(banner);
  picture(QStringLiteral("Signed out: the entries to the kit have gone"));
  click(QStringLiteral("파랑상점 소식"));
  awaitColor(join, QStringLiteral("the shop's web page was not painted"));
  picture(QStringLiteral("The shop's own web page"));
  click(join);
  await(lockedCard);
  picture(QStringLiteral("It has signed the user in and opened home"));
  close();
  click(QStringLiteral("상점으로"));
  await(QStringLiteral("로그아웃"));
#endif
}

}  // namespace orrelo::showroom
