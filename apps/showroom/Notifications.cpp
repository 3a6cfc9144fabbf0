#include "Notifications.h"

#include <orrelo/Orrelo.h>

#include <string>
#include <string_view>
#include <utility>
#include <variant>

namespace orrelo::showroom {
namespace {

template <class T>
const T* find(const EventDictionary& dictionary, std::string_view key) {
  const auto found = dictionary.find(key);
  return found == dictionary.end() ? nullptr : std::get_if<T>(&found->second.variant());
}

// The entry of the dictionary "aps", in which push services describe how a notification is shown.
template <class T>
const T* findInAps(const EventDictionary& payload, std::string_view key) {
  const auto* const aps = find<EventDictionary>(payload, "aps");
  return aps != nullptr ? find<T>(*aps, key) : nullptr;
}

// The text of the alert, which may also be nothing but its body.
QString alertText(const EventDictionary& payload, std::string_view key, const QString& otherwise) {
  const auto* text = key == "body" ? findInAps<std::string>(payload, "alert") : nullptr;
  if (const auto* const alert = findInAps<EventDictionary>(payload, "alert")) {
    text = find<std::string>(*alert, key);
  }
  return text != nullptr ? QString::fromStdString(*text) : otherwise;
}

EventDictionary stampNotification() {
  const EventDictionary alert{{"title", "스탬프가 기다려요"}, {"body", "세 개만 더 모으면 선물을 드려요"}};
  return {{"Orrelo", true}, {"campaignId", "stamp"}, {"aps", EventDictionary{{"alert", alert}}}};
}

}  // namespace

void Notifications::receive(const EventDictionary& payload) {
  const auto* const isSilent = findInAps<std::int64_t>(payload, "content-available");
  if (isSilent != nullptr && *isSilent == 1) {
    Orrelo::application(payload, [this](BackgroundFetchResult) { Q_EMIT handled(); });
    return;
  }
  waiting_.push_back(payload);
  showNext();
}

void Notifications::tap(const EventDictionary& payload) {
  Orrelo::userNotificationCenter({payload}, [this] { Q_EMIT handled(); });
}

void Notifications::play() {
  receive(stampNotification());
}

void Notifications::open() {
  if (!isShown()) return;
  const auto payload = std::move(waiting_.front());
  remove();
  tap(payload);
}

void Notifications::remove() {
  if (!isShown()) return;
  waiting_.pop_front();
  showNext();
}

void Notifications::showNext() {
  if (isShown()) {
    title_ = alertText(waiting_.front(), "title", QStringLiteral("파랑상점"));
    text_ = alertText(waiting_.front(), "body", QStringLiteral("새 소식이 있어요"));
  }
  Q_EMIT changed();
}

}  // namespace orrelo::showroom
