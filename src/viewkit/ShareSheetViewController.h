#pragma once

#include "ui/ViewController.h"

#include <orrelo/Export.h>

#include <memory>
#include <string>
#include <utility>

namespace orrelo {

/// A sheet at the bottom of the screen with the ways in which a machine without a sheet of its own can pass a
/// text on: the pasteboard, and the user's mail program. Main thread.
class ORRELO_EXPORT ShareSheetViewController final : public ViewController {
 public:
  static constexpr auto heading = "공유하기";
  static constexpr auto copyTitle = "복사";
  static constexpr auto mailTitle = "메일 보내기";
  static constexpr auto copyAsset = "orl_ic_copy";
  static constexpr auto mailAsset = "orl_ic_mail";
  static constexpr auto closeAsset = "orl_ic_close";

  explicit ShareSheetViewController(std::string shared) : text(std::move(shared)) {
    modalPresentationStyle = ModalPresentationStyle::overFullScreen;
  }

  /// Presents a sheet, animated, from the screen in front of the user; see Application::share. Logs an error
  /// if no window has a screen.
  static void share(const std::string& text);

  static constexpr std::string_view kindName = "ShareSheetViewController";
  std::string_view kind() const override { return kindName; }

  /// Called when the user chooses a way. Both leave the sheet.
  void copy();
  /// Opens a new message without recipient whose body is the text.
  void mail();
  /// Called for the close icon and for a tap outside the sheet.
  void close() override { dismiss(true); }

  const std::string text;
};

}  // namespace orrelo
