#pragma once

#include "base/Color.h"
#include "base/Json.h"
#include "modular/DialogComponent.h"

#include <orrelo/Export.h>

#include <string>

namespace orrelo {

/// A short message that fades out by itself.
class ORRELO_EXPORT ToastDialogComponent final : public DialogComponent {
 public:
  /// Throws a DecodingError: both fields are required.
  explicit ToastDialogComponent(const JsonObject& json)
      : message(json.text("text")), color(Color::fromHex(json.text("color"))) {}

  void show(ORLUIViewController& viewController) override {
    viewController.toastLayer->showToast(message, color);
  }

  const std::string message;
  const Color color;
};

}  // namespace orrelo
