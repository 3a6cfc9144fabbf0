#pragma once

#include "FrameClock.h"
#include "Showroom.h"

#include <QEvent>
#include <QImage>
#include <QList>
#include <QPointF>
#include <QQuickItem>
#include <QStringList>
#include <chrono>
#include <filesystem>
#include <functional>

namespace orrelo::showroom {

/// Plays what a user would do, with a line and a picture a step. Whatever a step must show is read from the
/// screen itself, by the names that assistive technology reads, and from the picture. Two tours of one build
/// leave equal pictures: animations go by the frame, and the showroom must have been made for `moment`.
class Tour {
 public:
  /// Noon in Seoul.
  static constexpr std::chrono::system_clock::time_point moment =
      std::chrono::sys_days(std::chrono::May / 20 / 2026) + std::chrono::hours(3);

  /// Pictures and the page that shows them go to `folder`, which is made.
  Tour(Showroom& showroom, QQuickWindow& window, std::filesystem::path folder);

  /// Throws std::runtime_error at the first step that does not show what it must.
  void play();

 private:
  void signedOut();
  void attendance();
  void checkIn();
  void result();
  void composedPage();
  void webPage();
  void otherKinds();
  void games();
  void failures();
  void sizes();

  // Of the games.
  void roulette();
  void scratchLottery();
  void lockedLottery();
  void emptyPage();
  void gamesInSizes();

  /// Runs the event loop until the screen holds this name.
  void await(const QString& name);
  /// The item with this name, once it has come and stands still.
  QQuickItem* awaitStill(const QString& name);
  void awaitGone(const QString& name);
  void await(const std::function<bool()>& holds, const QString& what);
  /// How much of the picture is of about this colour.
  static double share(const QImage& picture, const QColor& color);
  static void require(bool holds, const QString& what);
  QQuickItem* find(const QString& name) const;
  void send(QEvent::Type type, const QPointF& point, Qt::MouseButtons buttons);
  void click(const QString& name);
  /// Rubs in one go from point to point of the item with this name, each a share of its width and height.
  void rub(const QString& name, const QList<QPointF>& path);
  void press(Qt::Key key);
  void close();
  /// Once nothing moves.
  QImage picture(const QString& caption);
  /// At once, of whatever moves.
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
