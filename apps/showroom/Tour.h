#pragma once

#include "FrameClock.h"
#include "Showroom.h"

#include <QColor>
#include <QEvent>
#include <QImage>
#include <QList>
#include <QPointF>
#include <QQuickItem>
#include <QQuickWindow>
#include <QStringList>
#include <chrono>
#include <filesystem>
#include <functional>
#include <string>

namespace orrelo::showroom {

/// Plays a user's session and writes a line and a picture for each step. Checks each step on the screen
/// itself, by the names that assistive technology reads, and in the picture. Two tours of one build leave
/// equal pictures: animations advance frame by frame, and the showroom must have been created with `moment`.
class Tour {
 public:
  /// Noon in Seoul.
  static constexpr std::chrono::system_clock::time_point moment =
      std::chrono::sys_days(std::chrono::May / 20 / 2026) + std::chrono::hours(3);

  /// Writes the pictures and a page that shows them to `folder`, which is created.
  Tour(Showroom& showroom, QQuickWindow& window, std::filesystem::path folder);

  /// Throws std::runtime_error at the first step that does not show what it must.
  void play();

 private:
  /// Accessible names that several parts of the tour use.
  static inline const QString card = QStringLiteral("스크래치 복권, 누르면 결과가 나옵니다");
  static inline const QString confirm = QStringLiteral("확인");

  void coldStart();
  void signedOut();
  void attendance();
  void checkIn();
  void result();
  void composedPage();
  void webPage();
  void otherKinds();
  void movingPictures();
  void games();
  void home();
  void rewards();
  void notification();
  void otherHomes();
  void shopsOwnPage();
  void failures();
  void sizes();
  void messages();
  void referral();

  // Parts of `home`, `rewards` and `otherHomes`.
  void winFromHome();
  void pointHistory();
  void vouchers();
  void exchange();
  void listThatIsEmptyOrFails();
  void homeInSizes();
  /// Lets the service answer with no plugins and these campaigns until the faults are cleared.
  void orderNoPluginsAnd(const std::string& campaigns);

  // Parts of `messages`.
  void threeMessages();
  void oneMessage();
  void skippedMessages();

  // Parts of `referral`.
  QString friendsCode();
  void enterCode(const QString& code);
  void friendsReward();

  // Parts of `games`.
  void roulette();
  void scratchLottery();
  void lockedLottery();
  void emptyPage();
  void gamesInSizes();

  /// Lets the display tick, and waits before the last but one for what is being decoded.
  void tick(int count);
  /// Signs a user in as the shop's page does.
  void signInAs(const QString& user);
  /// Opens home from the shop's page.
  void openHome();
  /// Runs the event loop until the screen shows an item with this name. Throws std::runtime_error on timeout,
  /// as do the other waits.
  void await(const QString& name);
  /// Waits until the item with this name is there and has stopped moving, and returns it.
  QQuickItem* awaitStill(const QString& name);
  void awaitGone(const QString& name);
  void await(const std::function<bool()>& holds, const QString& what);
  /// The share of the picture's pixels that have about this colour.
  static double colorShare(const QImage& picture, const QColor& color);
  static void require(bool holds, const QString& what);
  QQuickItem* find(const QString& name) const;
  /// Scrolls so that the item with this name is in sight and not beneath the shop's floating button.
  void scrollTo(const QString& name);
  void click(const QString& name);
  /// Clicks on the middle of what has this colour, as in a web page, which has no named items.
  void click(const QColor& color);
  void awaitColor(const QColor& color, const QString& what);
  void send(QEvent::Type type, const QPointF& point, Qt::MouseButtons buttons);
  /// Drags without a pause through points of the item with this name, each a share of its width and height.
  void drag(const QString& name, const QList<QPointF>& path);
  void press(Qt::Key key);
  /// Types the text into the item with the focus.
  void type(const QString& text);
  void close();
  void closeHome();
  /// Waits until the screens' animations have ended.
  void settle();
  /// Takes a picture once all animations have ended.
  QImage picture(const QString& caption);
  /// Takes a picture at once, also during animations.
  QImage snapshot(const QString& caption);
  void writePage() const;

  Showroom& showroom_;
  QQuickWindow& window_;
  const std::filesystem::path folder_;
  FrameClock frames_;
  quint64 inputTime_ = 0;
  QStringList captions_;
};

}  // namespace orrelo::showroom
