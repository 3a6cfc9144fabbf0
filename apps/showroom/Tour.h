#pragma once

#include "Showroom.h"

#include <QImage>
#include <QQuickItem>
#include <QStringList>
#include <filesystem>
#include <functional>

namespace orrelo::showroom {

/// Plays what a user would do, with a line and a picture a step. Whatever a step must show is read from the
/// screen itself, by the names that assistive technology reads, and from the picture.
class Tour {
 public:
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
  void failures();
  void sizes();

  /// Runs the event loop until the screen holds this name.
  void await(const QString& name);
  void awaitGone(const QString& name);
  void await(const std::function<bool()>& holds, const QString& what);
  QQuickItem* find(const QString& name) const;
  void click(const QString& name);
  void press(Qt::Key key);
  void close();
  /// Once nothing moves.
  QImage picture(const QString& caption);
  void writePage() const;

  Showroom& showroom_;
  QQuickWindow& window_;
  const std::filesystem::path folder_;
  QStringList captions_;
};

}  // namespace orrelo::showroom
