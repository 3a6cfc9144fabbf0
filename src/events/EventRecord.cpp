#include "events/EventRecord.h"

#include "base/Utf8.h"
#include "events/OLSEventMapper.h"
#include "events/RecordBuffer.h"

#include <orrelo/UnsupportedEventValueException.h>

#include <algorithm>
#include <bit>
#include <cstdint>
#include <cstring>
#include <utility>

namespace orrelo {
namespace {

// The first byte of a value. Records outlive the process, so that the numbers must not change.
enum class Tag : std::uint8_t {
  null = 0,
  no = 1,
  yes = 2,
  integer = 3,
  number = 4,
  text = 5,
  date = 6,
  uuid = 7,
  url = 8,
  array = 9,
  set = 10,
  dictionary = 11,
  other = 12,
};

// One more than the depth of the deepest collection that OLSEventMapper converts.
constexpr int maximumNesting = 513;

// Integers are little-endian; lengths and counts have seven bits to a byte, the lowest first.
class Writer {
 public:
  Writer() { buffer_.extend(EventJournal::headerSize); }

  EventJournal::Record finish() { return buffer_.finish(); }

  void byte(std::uint8_t value) { *buffer_.extend(1) = static_cast<char>(value); }
  void word(std::uint64_t value) {
    char* const bytes = buffer_.extend(sizeof(value));
    for (std::size_t i = 0; i < sizeof(value); ++i) bytes[i] = static_cast<char>(value >> 8 * i);
  }
  void size(std::size_t value) {
    for (; value >= 0x80U; value >>= 7U) byte(static_cast<std::uint8_t>(value | 0x80U));
    byte(static_cast<std::uint8_t>(value));
  }
  void text(std::string_view value) {
    size(value.size());
    if (!value.empty()) std::memcpy(buffer_.extend(value.size()), value.data(), value.size());
  }
  void date(Date value) { word(static_cast<std::uint64_t>(value.sinceEpoch().count())); }
  void uuid(const Uuid& value) {
    std::memcpy(buffer_.extend(value.bytes().size()), value.bytes().data(), value.bytes().size());
  }

  void head(EventOrigin origin, const Uuid& id, Date time, const std::optional<std::string>& userId,
            std::string_view name) {
    byte(static_cast<std::uint8_t>(origin));
    uuid(id);
    date(time);
    byte(userId ? 1 : 0);
    if (userId) text(*userId);
    text(name);
  }

  void value(const EventValue& value) {
    // The usual types need no jump through the table of std::visit.
    const auto& variant = value.variant();
    if (const auto* const text = std::get_if<std::string>(&variant)) return put(*text);
    if (const auto* const integer = std::get_if<std::int64_t>(&variant)) return put(*integer);
    if (const auto* const number = std::get_if<double>(&variant)) return put(*number);
    if (const auto* const boolean = std::get_if<bool>(&variant)) return put(*boolean);
    std::visit([this](const auto& alternative) { put(alternative); }, variant);
  }
  void dictionary(const EventDictionary& values) {
    size(values.size());
    for (const auto& [key, element] : values) {
      text(key);
      value(element);
    }
  }

 private:
  void tag(Tag value) { byte(static_cast<std::uint8_t>(value)); }

  void put(std::monostate) { tag(Tag::null); }
  void put(bool value) { tag(value ? Tag::yes : Tag::no); }
  void put(std::int64_t value) {
    tag(Tag::integer);
    word(static_cast<std::uint64_t>(value));
  }
  void put(double value) {
    tag(Tag::number);
    word(std::bit_cast<std::uint64_t>(value));
  }
  void put(const std::string& value) {
    tag(Tag::text);
    text(value);
  }
  void put(Date value) {
    tag(Tag::date);
    date(value);
  }
  void put(const Uuid& value) {
    tag(Tag::uuid);
    uuid(value);
  }
  void put(const Url& value) {
    tag(Tag::url);
    text(value.text());
  }
  void put(const EventArray& value) {
    nested(Tag::array, [&] { elements(value); });
  }
  void put(const EventSet& value) {
    nested(Tag::set, [&] { elements(value.elements); });
  }
  void put(const EventDictionary& value) {
    nested(Tag::dictionary, [&] { dictionary(value); });
  }
  // Bytes and unknown types stand only within collections, which then have no JSON form.
  void put(const EventBytes&) { other("Bytes"); }
  void put(const EventOther& value) { other(value.typeName); }

  void other(std::string_view typeName) {
    tag(Tag::other);
    text(typeName);
  }

  void elements(const EventArray& values) {
    size(values.size());
    for (const auto& each : values) value(each);
  }

  template <class Put>
  void nested(Tag collection, Put put) {
    if (depth_ == maximumNesting) return other("a collection nested too deep");
    ++depth_;
    tag(collection);
    put();
    --depth_;
  }

  RecordBuffer buffer_;
  int depth_ = 0;
};

/// Reads what Writer has written. Bytes of any other origin end in a ReadFailure.
class Reader {
 public:
  struct ReadFailure {};

  explicit Reader(std::string_view bytes) : rest_(bytes) {}

  bool isAtEnd() const { return rest_.empty(); }

  std::string_view bytes(std::size_t count) {
    if (count > rest_.size()) throw ReadFailure();
    const auto taken = rest_.substr(0, count);
    rest_.remove_prefix(count);
    return taken;
  }
  std::uint8_t byte() { return static_cast<std::uint8_t>(bytes(1).front()); }
  std::uint64_t word() {
    const auto taken = bytes(sizeof(std::uint64_t));
    std::uint64_t value = 0;
    for (auto each = taken.rbegin(); each != taken.rend(); ++each) {
      value = value << 8U | static_cast<std::uint8_t>(*each);
    }
    return value;
  }
  std::size_t size() {
    std::uint64_t value = 0;
    for (unsigned shift = 0; shift < 35; shift += 7) {
      const auto next = byte();
      value |= std::uint64_t{next & 0x7FU} << shift;
      if (next >= 0x80U) continue;
      // Each byte and each element takes at least one byte. The size may have more bits than a size_t.
      if (value > rest_.size()) break;
      return static_cast<std::size_t>(value);
    }
    throw ReadFailure();
  }
  std::string text() { return std::string(bytes(size())); }
  Date date() { return Date(std::chrono::microseconds(static_cast<std::int64_t>(word()))); }
  Uuid uuid() {
    Uuid::Bytes result{};
    std::memcpy(result.data(), bytes(result.size()).data(), result.size());
    return Uuid(result);
  }

  EventValue value() {
    switch (Tag(byte())) {
      case Tag::null:
        return nullptr;
      case Tag::no:
        return false;
      case Tag::yes:
        return true;
      case Tag::integer:
        return static_cast<std::int64_t>(word());
      case Tag::number:
        return std::bit_cast<double>(word());
      case Tag::text:
        return text();
      case Tag::date:
        return date();
      case Tag::uuid:
        return uuid();
      case Tag::url:
        return url();
      case Tag::array:
        return nested([this] { return elements(); });
      case Tag::set:
        return nested([this] { return EventSet(elements()); });
      case Tag::dictionary:
        return nested([this] { return dictionary(); });
      case Tag::other:
        return EventOther{text()};
    }
    throw ReadFailure();
  }

  EventDictionary dictionary() {
    EventDictionary values;
    for (auto count = size(); count > 0; --count) {
      auto key = text();
      values.insert_or_assign(std::move(key), value());
    }
    return values;
  }

 private:
  Url url() {
    auto parsed = Url::parse(text());
    if (!parsed) throw ReadFailure();
    return *std::move(parsed);
  }
  EventArray elements() {
    EventArray values;
    for (auto count = size(); count > 0; --count) values.push_back(value());
    return values;
  }
  template <class Read>
  EventValue nested(Read read) {
    if (depth_ == maximumNesting) throw ReadFailure();
    ++depth_;
    EventValue result(read());
    --depth_;
    return result;
  }

  std::string_view rest_;
  int depth_ = 0;
};

}  // namespace

EventJournal::Record EventRecord::encode(const Uuid& id, Date time, const std::optional<std::string>& userId,
                                         std::string_view name, const EventValues& values) {
  Writer writer;
  writer.head(EventOrigin::host, id, time, userId, name);
  writer.dictionary(values);
  return writer.finish();
}

EventJournal::Record EventRecord::encode(const BIEvent& event) {
  Writer writer;
  writer.head(EventOrigin::kit, event.id, event.eventTime, event.userId, event.eventName);
  writer.size(event.eventValues.size());
  for (const auto& [key, value] : event.eventValues) {
    writer.text(key);
    writer.text(value);
  }
  return writer.finish();
}

EventOrigin EventRecord::origin(std::string_view record) {
  return record.size() > EventJournal::headerSize ? EventOrigin(record[EventJournal::headerSize])
                                                  : EventOrigin::host;
}

std::optional<EventRecord::Content> EventRecord::decode(std::string_view record) {
  if (record.size() < EventJournal::headerSize) return std::nullopt;
  try {
    Reader reader(record.substr(EventJournal::headerSize));
    Content content{EventOrigin(reader.byte()), {}};
    auto& event = content.event;
    event.id = reader.uuid();
    event.eventTime = reader.date();
    if (reader.byte() != 0) event.userId = utf8::repaired(reader.text());
    event.eventName = utf8::repaired(reader.text());
    if (content.origin == EventOrigin::host) {
      event.eventValues = OLSEventMapper().map(reader.dictionary());
    } else if (content.origin == EventOrigin::kit) {
      for (auto count = reader.size(); count > 0; --count) {
        auto key = utf8::repaired(reader.text());
        event.eventValues.set(std::move(key), utf8::repaired(reader.text()));
      }
    } else {
      return std::nullopt;
    }
    if (!reader.isAtEnd()) return std::nullopt;
    return content;
  } catch (const Reader::ReadFailure&) {
    return std::nullopt;
  } catch (
      const UnsupportedEventValueException&) {  // `sendEvent` refuses such values, so that nobody wrote it
    return std::nullopt;
  }
}

}  // namespace orrelo
