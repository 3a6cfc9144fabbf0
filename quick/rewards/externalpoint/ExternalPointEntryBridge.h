#pragma once

#include "quick/bridge/ViewBridge.h"
#include "rewards/externalpoint/ExternalPointEntryView.h"

#include <orrelo/quick/OrreloQuick.h>

#include <QColor>
#include <QPointer>
#include <QQuickWindow>

namespace orrelo::quick {

class ExternalPointEntryBridge final : public orrelo::quick::ViewBridge {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("")
  /// The window that contains the view. The exchange is presented over its content.
  Q_PROPERTY(QQuickWindow* window READ window WRITE setWindow NOTIFY windowChanged)
  Q_PROPERTY(bool isHidden READ isHidden NOTIFY stateChanged)
  Q_PROPERTY(QString guideMessage READ guideMessage NOTIFY stateChanged)
  Q_PROPERTY(QString exchangeLabel READ exchangeLabel NOTIFY stateChanged)
  Q_PROPERTY(QColor exchangeColor READ exchangeColor NOTIFY stateChanged)
  Q_PROPERTY(QColor exchangeTextColor READ exchangeTextColor NOTIFY stateChanged)

 public:
  ExternalPointEntryBridge(const std::shared_ptr<ExternalPointEntryView>& view, QObject* parent)
      : ViewBridge(view, parent), entry_(*view) {
    follow(entry_.state);
  }

  QQuickWindow* window() const { return window_; }
  void setWindow(QQuickWindow* window) {
    if (window == window_) return;
    window_ = window;
    if (window_) entry_.didMoveToWindow();
    Q_EMIT windowChanged();
  }

  bool isHidden() const { return entry_.state.value().isHidden; }
  QString guideMessage() const { return toQt(entry_.state.value().guideMessage); }
  QString exchangeLabel() const { return toQt(entry_.state.value().exchangeLabel); }
  QColor exchangeColor() const { return toQt(entry_.state.value().exchangeColor); }
  QColor exchangeTextColor() const { return toQt(entry_.state.value().exchangeTextColor); }

  Q_INVOKABLE void navigate() { entry_.navigate(window_ ? hostViewController(window_) : nullptr); }

 Q_SIGNALS:
  void windowChanged();

 private:
  ExternalPointEntryView& entry_;
  QPointer<QQuickWindow> window_;
};

/// Makes an entry view for a host's layout.
class ExternalPointEntry : public QObject {
  Q_OBJECT
  QML_ELEMENT
  Q_PROPERTY(orrelo::quick::ExternalPointEntryBridge* view MEMBER view CONSTANT)

 public:
  explicit ExternalPointEntry(QObject* parent = nullptr)
      : QObject(parent),
        view(new ExternalPointEntryBridge(std::make_shared<ExternalPointEntryView>(), this)) {}

  ExternalPointEntryBridge* const view;
};

}  // namespace orrelo::quick
