#include "quick/host/eventValues.h"

#include <QDateTime>
#include <QJSEngine>
#include <QJSValueIterator>
#include <QUrl>
#include <QVariant>
#include <chrono>
#include <cmath>
#include <stdexcept>
#include <string>
#include <utility>

namespace orrelo::quick {
namespace {

// As deep as the kit writes collections.
constexpr int maximumDepth = 512;
// More do not fit into a record of the journal.
constexpr quint32 maximumLength = 256 * 1024;
// From here on not every whole number has a double of its own.
constexpr double firstInexact = 9'007'199'254'740'992.0;

EventValue numberValue(double number) {
  if (std::trunc(number) == number && std::abs(number) < firstInexact) {
    return static_cast<std::int64_t>(number);
  }
  return number;
}

EventValue dateValue(const QDateTime& time) {
  if (!time.isValid()) return EventOther{"Invalid Date"};
  return Date(std::chrono::milliseconds(time.toMSecsSinceEpoch()));
}

EventValue urlValue(const QUrl& url) {
  auto text = url.toEncoded().toStdString();
  if (auto parsed = Url::parse(text)) return *std::move(parsed);
  return text;
}

class Converter {
 public:
  explicit Converter(QJSEngine& engine)
      : objectPrototype_(engine.globalObject().property("Object").property("prototype")) {}

  bool isPlainObject(const QJSValue& value) const {
    if (!value.isObject() || value.isQObject()) return false;
    const auto prototype = value.prototype();
    return prototype.isNull() || prototype.strictlyEquals(objectPrototype_);
  }

  EventDictionary dictionary(const QJSValue& object) {
    const Level level(depth_);
    EventDictionary members;
    QJSValueIterator iterator(object);
    while (iterator.next()) members[iterator.name().toStdString()] = convert(iterator.value());
    return members;
  }

 private:
  struct Level {
    explicit Level(int& counter) : depth(counter) {
      if (++depth <= maximumDepth) return;
      --depth;
      throw std::invalid_argument("The event's values are nested more than " + std::to_string(maximumDepth) +
                                  " deep, or contain themselves");
    }
    ~Level() { --depth; }
    Level(const Level&) = delete;
    Level& operator=(const Level&) = delete;

    int& depth;
  };

  EventValue convert(const QJSValue& value) {
    if (value.isUndefined() || value.isNull()) return nullptr;
    if (value.isBool()) return value.toBool();
    if (value.isNumber()) return numberValue(value.toNumber());
    if (value.isString()) return value.toString().toStdString();
    if (value.isDate()) return dateValue(value.toDateTime());
    if (value.isArray()) return array(value);
    if (isPlainObject(value)) return dictionary(value);
    if (const auto* const object = value.toQObject()) return EventOther{object->metaObject()->className()};
    return convertNative(value);
  }

  /// Converts a value of C++, such as that of a property with the type url or list<int>.
  EventValue convertNative(const QJSValue& value) {
    const auto native = value.toVariant(QJSValue::RetainJSObjects);
    if (native.metaType() == QMetaType::fromType<QUrl>()) return urlValue(native.toUrl());
    if (native.metaType() == QMetaType::fromType<QDateTime>()) return dateValue(native.toDateTime());
    if (native.metaType() == QMetaType::fromType<QJSValue>()) {
      const auto className = value.property("constructor").property("name").toString();
      return EventOther{value.isObject() ? className.toStdString() : "Symbol"};
    }
    if (native.metaType() != QMetaType::fromType<QByteArray>() && native.canConvert<QVariantList>()) {
      return array(value);
    }
    return EventOther{native.typeName()};
  }

  EventArray array(const QJSValue& value) {
    const Level level(depth_);
    EventArray elements;
    const auto length = value.property(QStringLiteral("length")).toUInt();
    if (length > maximumLength) {
      throw std::invalid_argument("An event's array has more than " + std::to_string(maximumLength) +
                                  " elements");
    }
    for (quint32 i = 0; i < length; ++i) elements.push_back(convert(value.property(i)));
    return elements;
  }

  const QJSValue objectPrototype_;
  int depth_ = 0;
};

}  // namespace

EventValues eventValues(QJSEngine& engine, const QJSValue& object) {
  if (object.isUndefined() || object.isNull()) return {};
  Converter converter(engine);
  if (!object.isObject() || object.isArray() || !converter.isPlainObject(object)) {
    throw std::invalid_argument("An event's values are the members of an object, such as {\"price\": 39.9}");
  }
  return converter.dictionary(object);
}

}  // namespace orrelo::quick
