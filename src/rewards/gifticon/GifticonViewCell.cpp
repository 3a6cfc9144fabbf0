#include "rewards/gifticon/GifticonViewCell.h"

#include "network/RFC3339DateParser.h"
#include "viewkit/joinedLabel.h"
#include "viewkit/legibility.h"

#include <string_view>
#include <variant>

namespace orrelo {
namespace {

// What a state adds to a cell.
struct Look {
  /// Follows the limit date.
  std::string_view dateSuffix;
  std::string_view iconAsset;
  double iconAlpha;
  std::string_view iconLabel;
  bool isEnabled;
};

constexpr std::string_view arrow = "orl_ic_arrow_down";
constexpr std::string_view barcode = "orl_ic_barcode";
constexpr std::string_view check = "orl_ic_check";

struct LookOf {
  Look operator()(const Gifticon::Idle&) const { return {"까지 발급 가능", arrow, 1.0, "발급하기", true}; }
  Look operator()(const Gifticon::Published&) const {
    return {"까지 사용 가능", barcode, 1.0, "기프티콘 보기", true};
  }
  Look operator()(const Gifticon::Expired&) const { return {"에 만료", barcode, 1.0, "기간 만료", false}; }
  Look operator()(const Gifticon::Used&) const { return {"", check, 1.0, "사용 완료", false}; }
  Look operator()(const Gifticon::Canceled&) const { return {"", barcode, 0.3, "발행 취소", false}; }
};

std::string dateText(Date date) {
  const auto zone = TimeZone::utc();
  return std::to_string(RFC3339DateParser::year(date, zone)) + "년 " +
         std::to_string(RFC3339DateParser::month(date, zone)) + "월 " +
         std::to_string(RFC3339DateParser::day(date, zone)) + "일";
}

}  // namespace

GifticonViewCell GifticonViewCell::of(const Gifticon& gifticon, const BrandTheme& brandTheme) {
  const auto look = std::visit(LookOf(), gifticon.state);
  GifticonViewCell cell{
      .tagLabel = gifticon.tagText,
      .titleLabel = gifticon.title,
      .limitDateLabel = dateText(gifticon.limitDate) + std::string(look.dateSuffix),
      .iconAsset = std::string(look.iconAsset),
      .iconAlpha = look.iconAlpha,
      .iconLabel = std::string(look.iconLabel),
      .iconLabelColor = look.isEnabled ? legibleOnWhite(brandTheme.primary) : disabledTextColor,
      .isEnabled = look.isEnabled,
      .accessibilityLabel = {},
  };
  cell.accessibilityLabel = joinedLabel(joinedLabel(cell.tagLabel, cell.titleLabel),
                                        joinedLabel(cell.limitDateLabel, cell.iconLabel));
  return cell;
}

}  // namespace orrelo
