#pragma once

#include "viewkit/base/View.h"

#include <orrelo/Export.h>
#include <orrelo/Url.h>

#include <chrono>
#include <optional>
#include <utility>

namespace orrelo {

/// A web page in a place of fixed size, which stays empty where the page fails or no browser is at hand. The
/// page may run scripts and open windows by them.
class ORRELO_EXPORT WebView final : public View {
 public:
  static constexpr std::chrono::seconds timeout{60};

  WebView(Url page, std::optional<double> points, double pointsHigh)
      : url(std::move(page)), width(points), height(pointsHigh) {}

  std::string_view kind() const override { return "WebView"; }

  const Url url;
  /// In points; absent where the stack gives it.
  const std::optional<double> width;
  const double height;
};

}  // namespace orrelo
