#include "Tour.h"

#include "accessibleItems.h"

#include <QAccessible>
#include <QColor>
#include <QCoreApplication>
#include <QElapsedTimer>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QLineF>
#include <QMouseEvent>
#include <QStyleHints>
#include <algorithm>
#include <fstream>
#include <iostream>
#include <stdexcept>
#include <utility>

namespace orrelo::showroom {
namespace {

using devservice::Fault;

constexpr int timeoutMilliseconds = 15'000;
// The number of frames to wait before taking a picture, which exceeds every animation of the screens.
constexpr int settleFrames = 44;

const QString checkInButton = QStringLiteral("오늘 출석하기");
const QString guide = QStringLiteral("출석체크 안내");
const QString tooltip =
    QStringLiteral("하루에 한 번 출석할 수 있어요.\n선물 표시가 있는 날에는 보너스를 드려요.");
const QString reward = QStringLiteral("출석 완료!");
const QString checkedIn = QStringLiteral("출석 완료");
const QString popUp = QStringLiteral("축하합니다!");
const QString tryAgain = QStringLiteral("잠시 후 다시 시도해 주세요.");
const QString loading = QStringLiteral("불러오는 중");

bool isNear(const QColor& a, const QColor& b) {
  return std::abs(a.red() - b.red()) + std::abs(a.green() - b.green()) + std::abs(a.blue() - b.blue()) < 24;
}

}  // namespace

Tour::Tour(Showroom& showroom, QQuickWindow& window, std::filesystem::path folder)
    : showroom_(showroom), window_(window), folder_(std::move(folder)) {
  QAccessible::setActive(true);
  QGuiApplication::styleHints()->setCursorFlashTime(0);  // it would blink by real time
  std::filesystem::create_directories(folder_);
}

void Tour::play() {
  coldStart();
  signedOut();
  attendance();
  checkIn();
  result();
  composedPage();
  webPage();
  otherKinds();
  movingPictures();
  games();
  home();
  rewards();
  notification();
  otherHomes();
  shopsOwnPage();
  failures();
  sizes();
  referral();
  messages();  // moves the clock to the next day
  writePage();
}

double Tour::colorShare(const QImage& picture, const QColor& color) {
  int count = 0;
  for (int y = 0; y < picture.height(); ++y) {
    for (int x = 0; x < picture.width(); ++x) {
      if (isNear(picture.pixelColor(x, y), color)) ++count;
    }
  }
  return static_cast<double>(count) / (picture.width() * picture.height());
}

void Tour::signedOut() {
  await(QStringLiteral("민지로 로그인"));
  picture(QStringLiteral("The host's own page; nobody is signed in"));
  click(QStringLiteral("출석체크 열기"));
  await(QStringLiteral("로그인 후 다시 시도해 주세요."));
  picture(QStringLiteral("A campaign without a user asks to sign in"));
  require(showroom_.service().requestCount("/campaigns/attendance") == 0,
          QStringLiteral("the service was asked"));
  close();
  click(QStringLiteral("민지로 로그인"));
  await(QStringLiteral("오늘의 혜택 모두 보기"));
  await(QStringLiteral("오늘의 선물이 도착했어요"));
  settle();  // the entries take a second to appear
  picture(QStringLiteral(
      "Signed in: the entries to the kit are there, and the floating button has a word to say"));
  click(QStringLiteral("구매하기"));
  await(QStringLiteral("구매하기 (1)"));
  awaitGone(QStringLiteral("오늘의 선물이 도착했어요"));
}

void Tour::signInAs(const QString& user) {
  QMetaObject::invokeMethod(&window_, "signIn", Q_ARG(QString, user));
}

void Tour::attendance() {
  click(QStringLiteral("출석체크 열기"));
  await(checkInButton);
  const auto before =
      picture(QStringLiteral("The attendance campaign before the check-in, on the host's own stack"));
  require(colorShare(before, QColor(0x5B, 0x50, 0xE8)) > 0.02,
          QStringLiteral("the campaign's colour is not there"));
  click(guide);
  await(tooltip);
  picture(QStringLiteral("What the guide explains"));
  click(tooltip);
  awaitGone(tooltip);
}

void Tour::checkIn() {
  click(checkInButton);
  await(reward);
  picture(QStringLiteral("The check-in has earned a reward"));
  click(QStringLiteral("확인"));
  awaitGone(reward);
  await(checkedIn);
  picture(QStringLiteral("The calendar after the check-in"));
  require(showroom_.service().requestCount("/check-in") == 1, QStringLiteral("there was not one check-in"));
  const auto requests = showroom_.service().requestCount("/campaigns/attendance");
  window_.hide();
  window_.show();
  await(checkedIn);
  picture(QStringLiteral("The window was away: the screen is as it was"));
  require(showroom_.service().requestCount("/campaigns/attendance") == requests,
          QStringLiteral("the screen that came back asked the service again"));
  close();
  click(QStringLiteral("진행 중인 출석"));
  await(checkedIn);
  picture(QStringLiteral("Opened again by its type: the service remembers"));
  close();
}

void Tour::result() {
  click(QStringLiteral("이벤트 결과 보기"));
  await(popUp);
  picture(QStringLiteral("A result, and its pop-up"));
  click(QStringLiteral("닫기"));
  awaitGone(popUp);
  await(QStringLiteral("가을 이벤트"));
  picture(QStringLiteral("The result beneath"));
  close();
  click(QStringLiteral("이벤트 결과 보기"));
  await(QStringLiteral("가을 이벤트"));
  picture(QStringLiteral("The second time there is no pop-up"));
  require(find(popUp) == nullptr, QStringLiteral("the pop-up came again"));
  close();
}

void Tour::failures() {
  auto& service = showroom_.service();
  service.orderFault({.kind = Fault::Kind::status, .pathSuffix = "/campaigns/attendance", .count = 1});
  click(QStringLiteral("출석체크 열기"));
  await(tryAgain);
  picture(QStringLiteral("A service that fails"));
  close();
  const auto hang = service.orderFault({.kind = Fault::Kind::hang, .pathSuffix = "/campaigns/attendance"});
  click(QStringLiteral("출석체크 열기"));
  await(loading);
  picture(QStringLiteral("A slow service"));
  service.clearFault(hang);
  await(checkedIn);
  close();
}

void Tour::sizes() {
  const auto original = window_.size();
  window_.resize(320, 568);
  click(QStringLiteral("출석체크 열기"));
  await(checkedIn);
  picture(QStringLiteral("On a small phone"));
  window_.setProperty("textScale", 2.0);
  picture(QStringLiteral("With text twice as large"));
  window_.setProperty("textScale", 1.0);
  window_.resize(1100, 760);
  picture(QStringLiteral("In a desktop window"));
  close();
  window_.resize(original);
}

void Tour::await(const QString& name) {
  await([&] { return find(name) != nullptr; }, QStringLiteral("\"%1\" did not appear").arg(name));
}

QQuickItem* Tour::awaitStill(const QString& name) {
  QPointF place;
  await(
      [&] {
        const auto* const item = find(name);
        return item != nullptr && std::exchange(place, item->mapToScene({})) == item->mapToScene({});
      },
      QStringLiteral("there is no \"%1\" at rest to press").arg(name));
  return find(name);
}

void Tour::awaitGone(const QString& name) {
  await([&] { return find(name) == nullptr; }, QStringLiteral("\"%1\" did not go").arg(name));
}

void Tour::await(const std::function<bool()>& holds, const QString& what) {
  QElapsedTimer timer;
  timer.start();
  while (!holds()) {
    require(timer.elapsed() < timeoutMilliseconds, what);
    frames_.next();
  }
}

void Tour::require(bool holds, const QString& what) {
  if (!holds) throw std::runtime_error(what.toStdString());
}

QQuickItem* Tour::find(const QString& name) const {
  return screenreader::find(window_.contentItem(), name);
}

void Tour::send(QEvent::Type type, const QPointF& point, Qt::MouseButtons buttons) {
  const auto button = type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton;
  QMouseEvent event(type, point, point, window_.mapToGlobal(point), button, buttons, Qt::NoModifier);
  constexpr quint64 milliseconds = 20;
  event.setTimestamp(inputTime_ += milliseconds);  // the screens tell a drag from a flick by it
  QCoreApplication::sendEvent(&window_, &event);
}

void Tour::click(const QString& name) {
  await(name);
  scrollTo(name);
  drag(name, {{0.5, 0.5}});
}

void Tour::scrollTo(const QString& name) {
  const auto* const item = find(name);
  auto* area = item->parentItem();
  while (area != nullptr && !area->property("contentY").isValid()) area = area->parentItem();
  if (area == nullptr) return;
  // The lowest part of the shop's page lies beneath the floating button.
  const double covered = area->objectName() == QStringLiteral("shop") ? 104 : 0;
  const double top = item->mapToItem(area, QPointF()).y();
  if (top >= 0 && top + item->height() <= area->height() - covered) return;
  const double most = std::max(0.0, area->property("contentHeight").toDouble() - area->height());
  const double middle = area->property("contentY").toDouble() + top - area->height() / 2;
  area->setProperty("contentY", std::clamp(middle, 0.0, most));
}

void Tour::awaitColor(const QColor& color, const QString& what) {
  await([&] { return colorShare(window_.grabWindow(), color) > 0.02; }, what);
}

void Tour::click(const QColor& color) {
  awaitColor(color, QStringLiteral("there is nothing of the colour %1").arg(color.name()));
  settle();
  const auto picture = window_.grabWindow();
  QPointF sum;
  int count = 0;
  for (int y = 0; y < picture.height(); ++y) {
    for (int x = 0; x < picture.width(); ++x) {
      if (!isNear(picture.pixelColor(x, y), color)) continue;
      sum += QPointF(x, y);
      ++count;
    }
  }
  require(count > 0, QStringLiteral("what has the colour %1 has gone").arg(color.name()));
  const auto middle = sum / count / picture.devicePixelRatio();
  send(QEvent::MouseMove, middle, Qt::NoButton);
  send(QEvent::MouseButtonPress, middle, Qt::LeftButton);
  send(QEvent::MouseButtonRelease, middle, Qt::NoButton);
}

void Tour::drag(const QString& name, const QList<QPointF>& path) {
  constexpr double step = 4.0;
  const auto* const item = awaitStill(name);
  QList<QPointF> points;
  for (const auto& share : path) {
    points.push_back(item->mapToScene({share.x() * item->width(), share.y() * item->height()}));
  }
  auto point = points.front();
  send(QEvent::MouseButtonPress, point, Qt::LeftButton);
  for (const auto& end : points) {
    for (QLineF way(point, end); way.length() > 0; way.setP1(point)) {
      point = way.length() > step ? way.pointAt(step / way.length()) : end;
      send(QEvent::MouseMove, point, Qt::LeftButton);
    }
  }
  send(QEvent::MouseButtonRelease, point, Qt::NoButton);
}

void Tour::press(Qt::Key key) {
  for (const auto type : {QEvent::KeyPress, QEvent::KeyRelease}) {
    QKeyEvent event(type, key, Qt::NoModifier);
    QCoreApplication::sendEvent(&window_, &event);
  }
}

void Tour::type(const QString& text) {
  for (const auto letter : text) {
    for (const auto type : {QEvent::KeyPress, QEvent::KeyRelease}) {
      QKeyEvent event(type, Qt::Key_unknown, Qt::NoModifier, letter);
      QCoreApplication::sendEvent(&window_, &event);
    }
  }
}

void Tour::close() {
  click(QStringLiteral("뒤로"));
  awaitGone(QStringLiteral("뒤로"));
}

void Tour::settle() {
  for (int frame = 0; frame < settleFrames; ++frame) frames_.next();
}

QImage Tour::picture(const QString& caption) {
  settle();
  return snapshot(caption);
}

QImage Tour::snapshot(const QString& caption) {
  const auto image = window_.grabWindow();
  require(!image.isNull(), QStringLiteral("the window gives no picture"));
  captions_.push_back(caption);
  const auto name = QStringLiteral("%1.png").arg(captions_.size(), 2, 10, QLatin1Char('0'));
  require(image.save(QString::fromStdString((folder_ / name.toStdString()).string())),
          QStringLiteral("the picture cannot be written"));
  std::cout << "[" << captions_.size() << "] " << caption.toStdString() << std::endl;
  return image;
}

void Tour::writePage() const {
  std::ofstream page(folder_ / "index.html");
  page << "<!doctype html><meta charset=utf-8><title>OrreloSDK</title>\n"
          "<style>body{font:15px sans-serif;background:#eceff3;margin:24px}"
          "figure{display:inline-block;vertical-align:top;margin:12px;width:300px}"
          "img{max-width:100%;border-radius:12px;box-shadow:0 2px 12px #0003}"
          "figcaption{margin-top:8px}</style>\n";
  for (qsizetype i = 0; i < captions_.size(); ++i) {
    const auto name = QStringLiteral("%1.png").arg(i + 1, 2, 10, QLatin1Char('0'));
    page << "<figure><img src=" << name.toStdString() << "><figcaption>" << (i + 1) << ". "
         << captions_[i].toStdString() << "</figcaption></figure>\n";
  }
}

}  // namespace orrelo::showroom
