#pragma once

#include <QHash>
#include <QList>
#include <QObject>
#include <QPointer>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickWindow>

namespace orrelo::quick {

/// Opens and closes the inspector's screen with Ctrl+Shift+O in the window that has the focus. It lies over
/// everything in the window and takes all input: everything beneath it is disabled. GUI thread only.
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
    /// What lies beneath and gets no input meanwhile.
    QList<QPointer<QQuickItem>> covered;
  };

  void open(QQuickWindow* window);
  void close(QQuickWindow* window);
  Q_SLOT void closeSender();

  QQmlEngine engine_;
  QQmlComponent component_;
  QHash<QQuickWindow*, Screen> screens_;
};

}  // namespace orrelo::quick
