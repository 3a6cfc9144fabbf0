#pragma once

#include "viewkit/ErrorView.h"
#include "viewkit/ORLUIViewController.h"

#include <orrelo/Export.h>

#include <memory>
#include <string>
#include <utility>

namespace orrelo {

/// A screen that only shows an error message.
class ORRELO_EXPORT ErrorViewController final : public ORLUIViewController {
 public:
  explicit ErrorViewController(std::string text)
      : message(std::move(text)), errorView(std::make_shared<ErrorView>(message)) {}

  static constexpr std::string_view kindName = "ErrorViewController";
  std::string_view kind() const override { return kindName; }

  const std::string message;
  static constexpr auto backgroundAsset = "orl_bg_gray_gradient";
  const std::shared_ptr<ErrorView> errorView;

 protected:
  void viewDidLoad() override { setTitle("이벤트"); }
};

}  // namespace orrelo
