#pragma once

#include "ui/View.h"
#include "viewkit/ToastView.h"

#include <orrelo/Export.h>

#include <memory>
#include <string>
#include <vector>

namespace orrelo {

/// The toasts over a screen, all in the same place. It takes no taps.
class ORRELO_EXPORT ToastLayer final : public View {
 public:
  std::string_view kind() const override { return "ToastLayer"; }

  /// Nothing while a toast with this very message stands.
  void showToast(const std::string& message, const Color& color);
  /// The toast's fade has been played.
  void fadeDidFinish(const ToastView& toast);

  /// The later ones above.
  Followed<std::vector<std::shared_ptr<ToastView>>> toasts;
};

}  // namespace orrelo
