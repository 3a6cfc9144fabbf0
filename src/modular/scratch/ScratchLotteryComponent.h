#pragma once

#include "base/Json.h"
#include "modular/UIComponent.h"
#include "modular/scratch/ScratchLotteryView.h"

#include <orrelo/Export.h>

#include <memory>
#include <string>

namespace orrelo {

/// A card to scratch. The result is in it from the start; the service is told once that it was laid open.
class ORRELO_EXPORT ScratchLotteryComponent final : public UIComponent, public ScratchLotteryViewDelegate {
 public:
  static constexpr std::string_view key = "scratch_lottery";
  enum class State { idle, done };
  /// Of the mask: with so much gone the rest goes too.
  static constexpr double doneRatio = 0.2;

  /// Throws a DecodingError: every field is required, and a state is one of the two.
  explicit ScratchLotteryComponent(const JsonObject& json);

  std::string_view arrayKey() const override { return key; }
  void render(StackView& stackView) override;

  void didScratch(double ratio) override;
  void handleUnscratchable() override;

  const State state;
  const bool scratchable;
  const std::string result;
  /// For who may not scratch.
  const std::string unscratchableUrl;
  const std::string doneUrl;
  const Color primaryColor;
  const Color secondaryColor;

 private:
  bool scratchDone_ = false;
  std::weak_ptr<ScratchLotteryView> view_;
};

}  // namespace orrelo
