#pragma once

#include "image/ImageView.h"
#include "ui/ViewController.h"

#include <orrelo/Export.h>

#include <memory>
#include <string>
#include <utility>

namespace orrelo {

/// A dialog with an image below two lines of text. A tap closes it.
class ORRELO_EXPORT PopUpDialogViewController final : public ViewController {
 public:
  struct Content {
    std::string title;
    std::string label;
    std::string imageUrl;
    /// The service's text for the button. The dialog shows `closeText` instead.
    std::string buttonText;
  };
  static constexpr auto closeText = "닫기";

  PopUpDialogViewController(std::string page, Content dialog)
      : pageName(std::move(page)),
        content(std::move(dialog)),
        imageView(std::make_shared<AutoLayoutImageView>()) {
    modalPresentationStyle = ModalPresentationStyle::overFullScreen;
  }

  static constexpr std::string_view kindName = "PopUpDialogViewController";
  std::string_view kind() const override { return kindName; }

  /// Called for a tap on the close label or outside the dialog's content.
  void close() override { dismiss(false); }

  const std::string pageName;
  const Content content;
  const std::shared_ptr<ImageView> imageView;

 protected:
  void viewDidLoad() override;
};

}  // namespace orrelo
