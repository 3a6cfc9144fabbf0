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

/// The accessible name of the back button.
inline const QString back = QStringLiteral("뒤로");

/// A host's window, rendered offscreen. Derived fixtures provide the service.
class WindowTest : public testing::Test {
 public:
  static QRectF sceneRect(const QQuickItem* item) { return {item->mapToScene({0, 0}), item->size()}; }

 protected:
  WindowTest();
  ~WindowTest() override;

  /// Opens a new host window.
  void open(QSize size, double textScale = 1.0);
  std::shared_ptr<ViewController> host() const { return quick::hostViewController(window_); }
  void showCampaign(const std::string& id) { Orrelo::showCampaign(id, host()); }

  /// Runs the event loop until `holds` returns true; returns false after 20 seconds.
  static bool waitFor(const std::function<bool()>& holds);
  /// Runs the event loop until no screen moves and no visible item has changed its place for a tenth of a
  /// second.
  void settle();
  /// Settles, then returns the window's picture and saves it for people to look at.
  QImage grab(const QString& name);

  /// The visible item with this accessible name; null where there is none.
  QQuickItem* named(const QString& name) const;
  bool waitForNamed(const QString& name) {
    return waitFor([&] { return named(name) != nullptr; });
  }
  /// A PNG file of a parcel on a coloured ground.
  static std::string picture(QSize size, const QColor& ground);
  /// The number of pixels of about this colour.
  static int count(const QImage& picture, const QColor& color);
  void click(const QString& name);
  void press(Qt::Key key) { QTest::keyClick(window_, key); }
  /// The accessible name of the item with the focus.
  QString focusName() const;
  /// All accessible names in reading order.
  QStringList names() const;
  /// The visible items that the QML file of this name draws, from top to bottom.
  std::vector<QQuickItem*> drawnBy(const char* file) const;
  /// Checks that no text is elided, exceeds its parents or overlaps another text, and that no named item
  /// exceeds the window unless it can be scrolled to.
  void expectNothingCut();

  TemporaryFolder folder_;
  std::unique_ptr<QQmlApplicationEngine> engine_;
  QQuickWindow* window_ = nullptr;
};

/// A host window over a real kit with a scripted service and a fixed clock.
class QuickTest : public WindowTest {
 protected:
  /// Calls `change` with the platform before it is installed.
  explicit QuickTest(const std::function<void(Platform&)>& change = {});

  void showCampaign() { WindowTest::showCampaign("c-1"); }

  std::shared_ptr<Service> service_;
};

}  // namespace orrelo::test
