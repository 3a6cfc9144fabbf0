#pragma once

#include "ui/View.h"
#include "viewkit/ToastView.h"

#include <orrelo/Export.h>

#include <memory>
#include <string>
#include <vector>

namespace orrelo {

/// The toasts over a screen, all at the same position. The layer ignores taps.
class ORRELO_EXPORT ToastLayer final : public View {
 public:
  std::string_view kind() const override { return "ToastLayer"; }

  /// Does nothing while a toast with the same message is shown.
  void showToast(const std::string& message, const Color& color);
  /// Called by the front when the toast has faded out.
  void fadeDidFinish(const ToastView& toast);

  /// Later toasts are drawn above earlier ones.
  Followed<std::vector<std::shared_ptr<ToastView>>> toasts;
};

}  // namespace orrelo
