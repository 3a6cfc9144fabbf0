#pragma once

#include <QHash>
#include <QObject>
#include <QPointer>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickWindow>

namespace orrelo::quick {

/// Opens and closes the inspector's screen with Ctrl+Shift+O in the window that has the focus. It lies over
/// everything in the window and takes all input. GUI thread only.
class Inspector : public QObject {
  Q_OBJECT

 public:
  explicit Inspector(QObject* parent);

  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  struct Screen {
    QPointer<QQuickItem> item;
    /// What had the focus before.
    QPointer<QQuickItem> focusBefore;
  };

  void open(QQuickWindow* window);
  void close(QQuickWindow* window);
  Q_SLOT void closeSender();

  QQmlEngine engine_;
  QQmlComponent component_;
  QHash<QQuickWindow*, Screen> screens_;
};

}  // namespace orrelo::quick
