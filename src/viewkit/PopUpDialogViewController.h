#pragma once

#include "image/ImageView.h"
#include "ui/ViewController.h"

#include <orrelo/Export.h>

#include <memory>
#include <string>
#include <utility>

namespace orrelo {

/// A picture with two lines over it, until it is tapped away.
class ORRELO_EXPORT PopUpDialogViewController final : public ViewController {
 public:
  struct Content {
    std::string title;
    std::string label;
    std::string imageUrl;
    /// What the service calls the button; the dialog says `closeText`.
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

  /// A tap on the close label or beside what the dialog shows.
  void close() override { dismiss(false); }

  const std::string pageName;
  const Content content;
  const std::shared_ptr<ImageView> imageView;

 protected:
  void viewDidLoad() override;
};

}  // namespace orrelo
