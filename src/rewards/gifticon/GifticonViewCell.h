#pragma once

#include "base/Color.h"
#include "config/Config.h"
#include "rewards/gifticon/Gifticon.h"

#include <string>

namespace orrelo {

/// The content of a cell of the gifticon screen: a voucher's texts, and on its right what a tap does.
struct GifticonViewCell {
  std::string tagLabel;
  std::string titleLabel;
  /// The limit date, in UTC, and what it means in this state.
  std::string limitDateLabel;
  /// One of the kit's images.
  std::string iconAsset;
  double iconAlpha = 1.0;
  std::string iconLabel;
  /// The colour of `iconLabel`, legible on white.
  Color iconLabelColor;
  /// False if a tap does nothing.
  bool isEnabled = false;
  /// All texts of the cell, for assistive technology.
  std::string accessibilityLabel;

  static GifticonViewCell of(const Gifticon& gifticon, const BrandTheme& brandTheme);

  friend bool operator==(const GifticonViewCell&, const GifticonViewCell&) = default;
};

}  // namespace orrelo
