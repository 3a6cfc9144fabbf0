#pragma once

#include <orrelo/Export.h>

#include <optional>
#include <string>
#include <string_view>

namespace orrelo {

/// A URI reference that satisfies the grammar of RFC 3986. The text is kept as it was given: nothing is
/// repaired, normalised or escaped. A plain value.
class ORRELO_EXPORT Url {
 public:
  /// Returns nullopt for an empty text and for a text that violates the grammar (with a blank, a bare "%", or
  /// "[" in a path, for example).
  static std::optional<Url> parse(std::string_view text);

  const std::string& text() const { return text_; }
  /// The scheme as written, without ":". Empty for a relative reference.
  std::string_view scheme() const { return part(scheme_); }
  /// The host without user and port; an IP literal keeps its brackets. Empty if there is no authority.
  std::string_view host() const { return part(host_); }
  /// The digits after the host's ":". Empty if they are absent.
  std::string_view port() const { return part(port_); }
  std::string_view path() const { return part(path_); }
  /// The part between "?" and "#"; nullopt if there is no "?".
  std::optional<std::string_view> query() const;
  /// The part after "#"; nullopt if there is no "#".
  std::optional<std::string_view> fragment() const;

  friend bool operator==(const Url& a, const Url& b) { return a.text_ == b.text_; }

 private:
  struct Span {
    std::size_t begin = 0;
    std::size_t length = 0;
  };

  Url() = default;
  std::string_view part(Span span) const { return std::string_view(text_).substr(span.begin, span.length); }
  bool parseAuthority(Span authority);

  std::string text_;
  Span scheme_, host_, port_, path_;
  std::optional<Span> query_, fragment_;
};

}  // namespace orrelo
