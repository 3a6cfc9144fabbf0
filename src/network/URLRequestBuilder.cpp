#include "network/URLRequestBuilder.h"

#include "base/Ascii.h"
#include "base/EnumTexts.h"
#include "base/Utf8.h"

#include <algorithm>
#include <array>

namespace orrelo {
namespace {

// Keeps the characters that RFC 3986, section 3.4, allows in a query, except the separators of items.
std::string queryEncoded(std::string_view text) {
  static constexpr std::string_view plain = "-._~!$'()*,;:@/?";
  return ascii::percentEncoded(utf8::repaired(text), [](char c) {
    return ascii::isAlphanumeric(c) || plain.find(c) != std::string_view::npos;
  });
}

std::string queryOf(const std::vector<URLQueryItem>& items) {
  std::string query;
  for (const auto& item : items) {
    query += query.empty() ? '?' : '&';
    query += queryEncoded(item.name);
    if (item.value) query += '=' + queryEncoded(*item.value);
  }
  return query;
}

constexpr EnumTexts<URLRequestBuilder::Method, 2> methods({
    {URLRequestBuilder::Method::post, "POST"},
    {URLRequestBuilder::Method::get, "GET"},
});

}  // namespace

std::string_view URLRequestBuilder::rawValue(Method method) {
  return methods.text(method);
}

std::optional<URLRequestBuilder::Method> URLRequestBuilder::methodOf(std::string_view rawValue) {
  return methods.value(rawValue);
}

URLRequest URLRequestBuilder::build() const {
  const auto components = Url::parse(baseUrl + path);
  if (!components) throw makeError(NetworkError::buildURLRequestFailed);

  std::string text = components->text();
  text.erase(std::min(text.find_first_of("?#"), text.size()));
  if (queryItems) text += queryOf(*queryItems);
  if (const auto fragment = components->fragment()) text.append("#").append(*fragment);

  const auto url = Url::parse(text);
  if (!url || url->scheme().empty() || url->host().empty())
    throw makeError(NetworkError::buildURLRequestFailed);
  URLRequest request{.url = *url};
  request.method = rawValue(method);
  if (headers) request.headers = *headers;
  request.body = body;
  return request;
}

}  // namespace orrelo
