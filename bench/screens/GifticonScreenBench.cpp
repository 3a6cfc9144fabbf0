// The gifticon screen: the memory that stays in use.
#include "rewards/gifticon/GifticonViewController.h"
#include "screens/ScreenBenches.h"
#include "screens/Stage.h"
#include "screens/growth.h"
#include "ui/RunningKit.h"

#include <string>

namespace orrelo::bench {
namespace {

constexpr std::size_t voucherCount = 12;

std::string vouchers() {
  std::string rows;
  for (std::size_t i = 0; i < voucherCount; ++i) {
    rows += (i > 0 ? "," : "") + std::string(R"({"id":"g-)") + std::to_string(i) +
            R"(","tag_text":"별빛다방","title":"아이스 아메리카노","date":"2026-12-31T00:00:00Z","state":")" +
            (i % 2 == 0 ? "idle" : "used") + "\"}";
  }
  return "[" + rows + "]";
}

void openAndClose() {
  auto& stage = Stage::shared();
  RunningKit::current()
      ->routers.at(Page::Fixed::gifticon)
      ->route(
          stage.host(), [] {}, [](const Error&) {});
  // The stage is its only owner, so that `close` can wait for its end.
  const auto* const screen =
      dynamic_cast<const GifticonViewController*>(stage.host()->presentedViewController().get());
  stage.waitForFrame({screen->stateChanges()}, [&] { return screen->state().cells.size() == voucherCount; });
  stage.close();
}

}  // namespace

void addGifticonScreen() {
  add({{"resident memory that 200 openings of the gifticon screen add", "MiB", 1}}, [] {
    Stage::shared().service().answers["/gifticons"] = {200, vouchers()};
    return growthBy(&openAndClose);
  });
}

}  // namespace orrelo::bench
