#include <orrelo/Url.h>

#include <algorithm>
#include <arpa/inet.h>
#include <array>
#include <cstddef>

namespace orrelo {
namespace {

bool isAlpha(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}
bool isDigit(char c) {
  return c >= '0' && c <= '9';
}
bool isHexDigit(char c) {
  return isDigit(c) || (c >= 'a' && c <= 'f') || (c >= 'A' && c <= 'F');
}

// The characters "unreserved" and "sub-delims" of RFC 3986, sections 2.2 and 2.3.
bool isPlain(char c) {
  return isAlpha(c) || isDigit(c) || std::string_view("-._~!$&'()*+,;=").find(c) != std::string_view::npos;
}

// True if the text has only plain characters, percent escapes, and characters in `extra`.
bool consistsOf(std::string_view text, std::string_view extra) {
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] == '%') {
      if (i + 2 >= text.size() || !isHexDigit(text[i + 1]) || !isHexDigit(text[i + 2])) return false;
      i += 2;
    } else if (!isPlain(text[i]) && extra.find(text[i]) == std::string_view::npos) {
      return false;
    }
  }
  return true;
}

bool isScheme(std::string_view text) {
  return !text.empty() && isAlpha(text.front()) && std::all_of(text.begin(), text.end(), [](char c) {
    return isAlpha(c) || isDigit(c) || c == '+' || c == '-' || c == '.';
  });
}

// True for an IPv6address or IPvFuture of RFC 3986, section 3.2.2; `text` excludes the brackets.
bool isIpLiteral(std::string_view text) {
  if (!text.empty() && (text.front() == 'v' || text.front() == 'V')) {
    const auto dot = text.find('.');
    if (dot == std::string_view::npos || dot < 2 || dot + 1 == text.size()) return false;
    const auto version = text.substr(1, dot - 1);
    const auto rest = text.substr(dot + 1);
    return std::all_of(version.begin(), version.end(), isHexDigit) &&
           std::all_of(rest.begin(), rest.end(), [](char c) { return isPlain(c) || c == ':'; });
  }
  std::array<unsigned char, 16> address{};
  return inet_pton(AF_INET6, std::string(text).c_str(), address.data()) == 1 &&
         text.find('\0') == std::string_view::npos;
}

}  // namespace

std::optional<std::string_view> Url::query() const {
  return query_ ? std::optional(part(*query_)) : std::nullopt;
}

std::optional<std::string_view> Url::fragment() const {
  return fragment_ ? std::optional(part(*fragment_)) : std::nullopt;
}

bool Url::parseAuthority(Span authority) {
  Span hostAndPort = authority;
  const auto text = part(authority);
  if (const auto at = text.rfind('@'); at != std::string_view::npos) {
    if (!consistsOf(text.substr(0, at), ":")) return false;
    hostAndPort = {authority.begin + at + 1, authority.length - at - 1};
  }
  const auto rest = part(hostAndPort);
  std::size_t hostEnd = 0;
  if (rest.starts_with('[')) {
    const auto bracket = rest.find(']');
    if (bracket == std::string_view::npos || !isIpLiteral(rest.substr(1, bracket - 1))) return false;
    hostEnd = bracket + 1;
  } else {
    hostEnd = std::min(rest.find(':'), rest.size());
    if (!consistsOf(rest.substr(0, hostEnd), "")) return false;
  }
  host_ = {hostAndPort.begin, hostEnd};
  if (hostEnd == rest.size()) return true;
  const auto port = rest.substr(hostEnd + 1);
  port_ = {hostAndPort.begin + hostEnd + 1, port.size()};
  return rest[hostEnd] == ':' && std::all_of(port.begin(), port.end(), isDigit);
}

std::optional<Url> Url::parse(std::string_view text) {
  if (text.empty()) return std::nullopt;
  Url url;
  url.text_ = text;
  std::size_t begin = 0;
  std::size_t end = text.size();

  if (const auto hash = text.find('#'); hash != std::string_view::npos) {
    url.fragment_ = Span{hash + 1, end - hash - 1};
    if (!consistsOf(url.part(*url.fragment_), ":@/?")) return std::nullopt;
    end = hash;
  }
  if (const auto mark = text.substr(0, end).find('?'); mark != std::string_view::npos) {
    url.query_ = Span{mark + 1, end - mark - 1};
    if (!consistsOf(url.part(*url.query_), ":@/?")) return std::nullopt;
    end = mark;
  }
  const auto firstSegment = text.substr(0, std::min(text.find('/'), end));
  if (const auto colon = firstSegment.find(':'); colon != std::string_view::npos) {
    // A relative reference may not have a colon in its first segment, so this can only be a scheme.
    if (!isScheme(firstSegment.substr(0, colon))) return std::nullopt;
    url.scheme_ = {0, colon};
    begin = colon + 1;
  }
  if (text.substr(begin, end - begin).starts_with("//")) {
    begin += 2;
    const auto authorityEnd = std::min(text.find('/', begin), end);
    if (!url.parseAuthority({begin, authorityEnd - begin})) return std::nullopt;
    begin = authorityEnd;
  }
  url.path_ = {begin, end - begin};
  if (!consistsOf(url.part(url.path_), ":@/")) return std::nullopt;
  return url;
}

}  // namespace orrelo
