#include "Tour.h"

namespace orrelo::showroom {
namespace {

using devservice::Fault;

const QString show = QStringLiteral("오늘의 메시지 보기");
const QString skip = QStringLiteral("오늘 하루 그만 보기");
const QString only = QStringLiteral("이벤트 배너");

QString bannerOf(int number) {
  return QStringLiteral("이벤트 배너, 3개 중 %1번째").arg(number);
}

}  // namespace

void Tour::messages() {
  threeMessages();
  oneMessage();
  skippedMessages();
}

void Tour::threeMessages() {
  click(show);
  await(bannerOf(1));
  picture(QStringLiteral("Three messages over the host's page"));
  drag(bannerOf(1), {{0.9, 0.5}, {0.1, 0.5}});
  await(bannerOf(2));
  picture(QStringLiteral("The second, after a swipe"));
  press(Qt::Key_Right);
  await(bannerOf(3));
  picture(QStringLiteral("The third, turned to by a key"));
  const auto original = window_.size();
  window_.resize(1100, 760);
  picture(QStringLiteral("It stays there in a desktop window"));
  window_.resize(original);
  settle();
  click(bannerOf(3));
  await(QStringLiteral("뒤로"));
  awaitGone(skip);
  picture(QStringLiteral("A press opens its campaign on the host's stack"));
  close();
}

void Tour::oneMessage() {
  auto& service = showroom_.service();
  const auto picturePath = service.baseUrl() + "/images/banner-roulette.png";
  const auto fault =
      service.orderFault({.kind = Fault::Kind::body,
                          .pathSuffix = "/in-app-message/banner",
                          .body = R"({"type":"banner","items":[{"campaign_id":"roulette","image_url":")" +
                                  picturePath + R"("}]})"});
  click(show);
  await(only);
  picture(QStringLiteral("A single message has no dots"));
  press(Qt::Key_Escape);
  awaitGone(only);
  service.clearFault(fault);
}

void Tour::skippedMessages() {
  auto& service = showroom_.service();
  click(show);
  await(skip);
  settle();
  click(skip);
  awaitGone(skip);
  const auto requests = service.requestCount("/in-app-message/banner");
  click(show);
  picture(QStringLiteral("Declined for today: the messages stay away"));
  require(find(skip) == nullptr, QStringLiteral("the messages came although they were declined"));
  showroom_.letTheNextDayBegin();
  click(show);
  await(bannerOf(1));
  picture(QStringLiteral("The next day they are there again"));
  // A request of the declined show would have been sent by now.
  require(service.requestCount("/in-app-message/banner") == requests + 1,
          QStringLiteral("the service was asked for messages that were declined"));
  press(Qt::Key_Escape);
  awaitGone(skip);
}

}  // namespace orrelo::showroom
