#pragma once

#include "Service.h"
#include "support/TemporaryFolder.h"
#include "ui/ViewController.h"

#include <orrelo/Orrelo.h>
#include <orrelo/quick/OrreloQuick.h>

#include <QColor>
#include <QImage>
#include <QQmlApplicationEngine>
#include <QQuickItem>
#include <QQuickWindow>
#include <QString>
#include <QTest>
#include <functional>
#include <gmock/gmock.h>
#include <memory>
#include <vector>

namespace orrelo::test {

/// A host's window, drawn off the screen. What the kit talks to is the heirs' matter.
class WindowTest : public testing::Test {
 public:
  static QRectF sceneRect(const QQuickItem* item) { return {item->mapToScene({0, 0}), item->size()}; }

 protected:
  WindowTest();
  ~WindowTest() override;

  /// Opens the host's window anew.
  void open(QSize size, double textScale = 1.0);
  std::shared_ptr<ViewController> host() const { return quick::hostViewController(window_); }
  void showCampaign(const std::string& id) { Orrelo::showCampaign(id, host()); }

  /// Runs the event loop until `holds`; false after some seconds.
  static bool waitFor(const std::function<bool()>& holds);
  /// Until nothing moves.
  void settle();
  /// What the window shows, kept as a picture for people to look at.
  QImage grab(const QString& name);

  /// The item that assistive technology knows by this name, where it can be seen; null where there is none.
  QQuickItem* named(const QString& name) const;
  bool waitForNamed(const QString& name) {
    return waitFor([&] { return named(name) != nullptr; });
  }
  /// A parcel on a coloured ground, as a PNG file.
  static std::string picture(QSize size, const QColor& ground);
  /// How many pixels of `picture` have this colour, or nearly.
  static int count(const QImage& picture, const QColor& color);
  void click(const QString& name);
  void press(Qt::Key key) { QTest::keyClick(window_, key); }
  /// The name of what has the keyboard.
  QString focusName() const;
  /// Every name in reading order.
  QStringList names() const;
  /// The visible items that the QML file of this name draws, from top to bottom.
  std::vector<QQuickItem*> drawnBy(const char* file) const;
  /// No text is elided, sticks out of what holds it or lies over another, and nothing that has a name sticks
  /// out of the window but for what can be scrolled to.
  void expectNothingCut() const;

  TemporaryFolder folder_;
  std::unique_ptr<QQmlApplicationEngine> engine_;
  QQuickWindow* window_ = nullptr;
};

/// Over a real kit with a scripted service, and a clock that stands still.
class QuickTest : public WindowTest {
 protected:
  /// `change` is made to the machine before it is installed.
  explicit QuickTest(const std::function<void(Platform&)>& change = {});

  void showCampaign() { WindowTest::showCampaign("c-1"); }

  std::shared_ptr<Service> service_;
};

}  // namespace orrelo::test
