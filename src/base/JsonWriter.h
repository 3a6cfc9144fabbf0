#pragma once

#include "base/StringDictionary.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace orrelo {

/// Writes one JSON document, with keys in the order of the calls. "/" is not escaped. Texts must be valid
/// UTF-8 (see utf8::repaired).
class JsonWriter {
 public:
  enum class Style { compact, pretty };

  explicit JsonWriter(Style style = Style::compact) : style_(style) {}

  JsonWriter& beginObject();
  JsonWriter& endObject();
  JsonWriter& beginArray();
  JsonWriter& endArray();
  JsonWriter& key(std::string_view key);
  JsonWriter& text(std::string_view text);
  JsonWriter& integer(std::int64_t number);
  /// Writes the number as numberText does. It must be finite: JSON has no form for infinities and NaN.
  JsonWriter& number(double number);
  JsonWriter& boolean(bool value);
  JsonWriter& null();
  JsonWriter& dictionary(const StringDictionary& entries);

  JsonWriter& field(std::string_view name, std::string_view value) { return key(name).text(value); }

  const std::string& result() const& { return out_; }
  std::string result() && { return std::move(out_); }

 private:
  void beforeValue();
  void open(char bracket);
  void close(char bracket);
  void newLine();
  void quoted(std::string_view text);

  Style style_;
  std::string out_;
  std::vector<bool> hasElements_;
  bool afterKey_ = false;
};

}  // namespace orrelo
