#pragma once

#include "base/Json.h"
#include "modular/UIComponent.h"
#include "modular/scratch/ScratchLotteryView.h"

#include <orrelo/Export.h>

#include <memory>
#include <string>

namespace orrelo {

/// A scratch card. The result is part of the card from the start; the service is notified once that it was
/// revealed.
class ORRELO_EXPORT ScratchLotteryComponent final : public UIComponent, public ScratchLotteryViewDelegate {
 public:
  static constexpr std::string_view key = "scratch_lottery";
  enum class State { idle, done };
  /// The erased share of the mask at which the whole mask is removed.
  static constexpr double doneRatio = 0.2;

  /// Throws a DecodingError: every field is required, and the state must be "idle" or "done".
  explicit ScratchLotteryComponent(const JsonObject& json);

  std::string_view arrayKey() const override { return key; }
  void render(StackView& stackView) override;

  void didScratch(double ratio) override;
  void handleUnscratchable() override;

  const State state;
  const bool scratchable;
  const std::string result;
  /// The action for users who may not scratch.
  const std::string unscratchableUrl;
  const std::string doneUrl;
  const Color primaryColor;
  const Color secondaryColor;

 private:
  bool scratchDone_ = false;
  std::weak_ptr<ScratchLotteryView> view_;
};

}  // namespace orrelo
