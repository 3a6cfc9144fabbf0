#include "base/JsonWriter.h"

#include "base/Ascii.h"
#include "base/numberText.h"

namespace orrelo {

JsonWriter& JsonWriter::beginObject() {
  return open('{'), *this;
}
JsonWriter& JsonWriter::endObject() {
  return close('}'), *this;
}
JsonWriter& JsonWriter::beginArray() {
  return open('['), *this;
}
JsonWriter& JsonWriter::endArray() {
  return close(']'), *this;
}

JsonWriter& JsonWriter::key(std::string_view key) {
  beforeValue();
  quoted(key);
  out_ += style_ == Style::pretty ? " : " : ":";
  afterKey_ = true;
  return *this;
}

JsonWriter& JsonWriter::text(std::string_view text) {
  beforeValue();
  quoted(text);
  return *this;
}

JsonWriter& JsonWriter::integer(std::int64_t number) {
  beforeValue();
  out_ += numberText(number);
  return *this;
}

JsonWriter& JsonWriter::number(double number) {
  beforeValue();
  out_ += numberText(number);
  return *this;
}

JsonWriter& JsonWriter::boolean(bool value) {
  beforeValue();
  out_ += value ? "true" : "false";
  return *this;
}

JsonWriter& JsonWriter::null() {
  beforeValue();
  out_ += "null";
  return *this;
}

JsonWriter& JsonWriter::dictionary(const StringDictionary& entries) {
  beginObject();
  for (const auto& [name, value] : entries) field(name, value);
  return endObject();
}

void JsonWriter::beforeValue() {
  if (afterKey_) {
    afterKey_ = false;
    return;
  }
  if (hasElements_.empty()) return;
  if (hasElements_.back()) out_ += ',';
  hasElements_.back() = true;
  newLine();
}

void JsonWriter::open(char bracket) {
  beforeValue();
  out_ += bracket;
  hasElements_.push_back(false);
}

void JsonWriter::close(char bracket) {
  const bool hadElements = hasElements_.back();
  hasElements_.pop_back();
  if (hadElements) newLine();
  out_ += bracket;
}

void JsonWriter::newLine() {
  if (style_ == Style::compact) return;
  out_ += '\n';
  out_.append(2 * hasElements_.size(), ' ');
}

void JsonWriter::quoted(std::string_view text) {
  out_ += '"';
  std::size_t plain = 0;  // the start of the characters not yet copied
  for (std::size_t i = 0; i < text.size(); ++i) {
    const auto c = static_cast<unsigned char>(text[i]);
    if (c >= 0x20 && c != '"' && c != '\\') continue;
    out_.append(text, plain, i - plain);
    plain = i + 1;
    switch (c) {
      case '"':
        out_ += "\\\"";
        break;
      case '\\':
        out_ += "\\\\";
        break;
      case '\n':
        out_ += "\\n";
        break;
      case '\r':
        out_ += "\\r";
        break;
      case '\t':
        out_ += "\\t";
        break;
      case '\b':
        out_ += "\\b";
        break;
      case '\f':
        out_ += "\\f";
        break;
      default:
        ascii::appendHex(out_ += "\\u00", c, ascii::lowerHexDigits);
    }
  }
  out_.append(text, plain, text.size() - plain);
  out_ += '"';
}

}  // namespace orrelo
