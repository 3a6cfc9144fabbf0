#pragma once

#include "rewards/gifticon/ZoomImageView.h"
#include "ui/ViewController.h"
#include "viewkit/ErrorView.h"

#include <orrelo/Export.h>

#include <memory>
#include <string>
#include <string_view>
#include <utility>

namespace orrelo {

/// The picture of a published voucher over the whole screen. The user can enlarge it.
class ORRELO_EXPORT GifticonDetailViewController final : public ViewController {
 public:
  GifticonDetailViewController(std::string picture, std::string closeText)
      : imageUrl(std::move(picture)), buttonText(std::move(closeText)) {
    errorView->setHidden(true);
  }

  static constexpr std::string_view kindName = "GifticonDetailViewController";
  std::string_view kind() const override { return kindName; }

  /// The screen's name for assistive technology.
  static constexpr std::string_view accessibilityLabel = "기프티콘";
  const std::string imageUrl;
  const std::string buttonText;
  const std::shared_ptr<ZoomImageView> imageView = std::make_shared<ZoomImageView>();
  /// Shown in place of a picture that cannot be loaded.
  const std::shared_ptr<ErrorView> errorView = std::make_shared<ErrorView>("잠시 후 다시 시도해주세요.");
  Followed<bool> isLoading;

 protected:
  void viewDidLoad() override;

 private:
  void didLoad(bool isSuccess);
};

}  // namespace orrelo
