#include "modular/content/WebComponent.h"

#include "base/Error.h"
#include "viewkit/WebView.h"

#include <algorithm>
#include <charconv>

namespace orrelo {
namespace {

Url urlOf(const std::string& text) {
  if (auto url = Url::parse(text)) return *std::move(url);
  throw makeError(DecodingError::dataCorrupted, "Invalid URL");
}

// Converts a text to a length in points. Negative values and texts that are not integers count as 0; large
// values are limited to what a screen can lay out.
double pointsOf(std::string_view text) {
  constexpr std::int64_t maximum = 1'000'000;
  if (text.starts_with('+')) text.remove_prefix(1);
  std::int64_t points = 0;
  const auto* const end = text.data() + text.size();
  const auto [stop, fault] = std::from_chars(text.data(), end, points);
  return fault == std::errc() && stop == end
             ? static_cast<double>(std::clamp(points, std::int64_t{0}, maximum))
             : 0.0;
}

}  // namespace

WebComponent::WebComponent(const JsonObject& json)
    : url(urlOf(json.text("url"))), width(json.text("width")), height(json.text("height")) {}

void WebComponent::render(StackView& stackView) {
  const bool isFullWidth = width == "100%";
  const auto ownWidth = isFullWidth ? std::nullopt : std::optional(pointsOf(width));
  stackView.addArrangedSubview(std::make_shared<WebView>(url, ownWidth, pointsOf(height)),
                               isFullWidth ? std::optional(0.0) : std::nullopt);
}

}  // namespace orrelo
