#pragma once

#include <QObject>
#include <QPointer>
#include <QQuickItem>
#include <QString>
#include <QtQml/qqmlregistration.h>
#include <functional>
#include <memory>

namespace orrelo::quick {

/// An item of the host that opens home while this object lives. ClickArea.qml takes its input.
class ClickableView final : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("")
  /// The texts in the item, for assistive technology. Follows them as they change.
  Q_PROPERTY(QString name READ name NOTIFY nameChanged)
  /// False while the entry view is invisible.
  Q_PROPERTY(bool isEnabled READ isEnabled NOTIFY isEnabledChanged)

 public:
  using OnTap = std::function<void()>;

  /// `onTap` may delete this object, but should use `letGo`.
  ClickableView(QQuickItem& view, OnTap onTap);
  ~ClickableView() override;

  /// Deletes the view, or later if it is handling a tap; then it belongs to `owner` until it is deleted.
  static void letGo(std::unique_ptr<ClickableView> view, QObject* owner);

  /// Null after the item has been destroyed.
  QQuickItem* view() const { return view_; }
  QString name() const;
  bool isEnabled() const { return isEnabled_; }
  void setEnabled(bool isEnabled);

  Q_INVOKABLE void tap();

 Q_SIGNALS:
  void nameChanged();
  void isEnabledChanged();
  /// The item has left its scene or was destroyed.
  void gone();

 private:
  void makeArea();
  void followTexts();

  const QPointer<QQuickItem> view_;
  const OnTap onTap_;
  QPointer<QQuickItem> area_;
  bool isEnabled_ = false;
  /// True during a tap.
  bool isTapped_ = false;
};

}  // namespace orrelo::quick
