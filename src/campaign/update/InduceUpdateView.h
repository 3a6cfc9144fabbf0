#pragma once

#include "base/Color.h"
#include "viewkit/ErrorView.h"
#include "viewkit/ToastLayer.h"

#include <orrelo/Export.h>

#include <memory>
#include <string>

namespace orrelo {

/// Asks the user to update the host's application, with a button that opens the update page.
class ORRELO_EXPORT InduceUpdateView final : public View {
 public:
  static constexpr auto buttonTitle = "업데이트하러 가기";

  /// Shows a toast on `toastLayer` if the URL cannot be opened.
  InduceUpdateView(std::string updateUrl, const Color& brandColor, std::weak_ptr<ToastLayer> toastLayer);

  static constexpr std::string_view kindName = "InduceUpdateView";
  std::string_view kind() const override { return kindName; }

  /// Called when the button is pressed.
  void routeToUpdateLink();

  /// The colour of the button's title and border.
  const Color color;
  const std::shared_ptr<ErrorView> errorView;

 private:
  const std::string updateUrl_;
  const std::weak_ptr<ToastLayer> toastLayer_;
};

}  // namespace orrelo
