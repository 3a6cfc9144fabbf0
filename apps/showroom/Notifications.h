#pragma once

#ifndef Q_MOC_RUN  // moc cannot read <concepts>
#include <orrelo/EventValue.h>
#endif

#include <QObject>
#include <QString>
#include <deque>

namespace orrelo::showroom {

/// The notifications of the shop's application. One at a time is shown in a banner, until the user opens or
/// removes it.
class Notifications final : public QObject {
  Q_OBJECT
  Q_PROPERTY(bool isShown READ isShown NOTIFY changed)
  Q_PROPERTY(QString title READ title NOTIFY changed)
  Q_PROPERTY(QString text READ text NOTIFY changed)

 public:
  /// Takes a payload that has arrived. One with "content-available" goes to the kit at once, without a
  /// banner.
  void receive(const EventDictionary& payload);
  /// Hands a notification that the user has tapped to the kit.
  void tap(const EventDictionary& payload);

  bool isShown() const { return !waiting_.empty(); }
  /// The texts of the notification in the banner, or of the last one there.
  QString title() const { return title_; }
  QString text() const { return text_; }

  /// Lets a notification about the shop's stamps arrive.
  Q_INVOKABLE void play();
  /// The banner was tapped.
  Q_INVOKABLE void open();
  /// The banner was removed.
  Q_INVOKABLE void remove();

 Q_SIGNALS:
  void changed();
  /// The kit has handled a notification of its own, which may have brought the last user back.
  void handled();

 private:
  void showNext();

  /// The first one is in the banner.
  std::deque<EventDictionary> waiting_;
  QString title_;
  QString text_;
};

}  // namespace orrelo::showroom
