#pragma once

#include "config/Config.h"
#include "config/FetchConfigUseCase.h"
#include "reactive/Traits.h"
#include "rewards/FetchRewardUseCase.h"
#include "rewards/Reward.h"

#include <memory>
#include <optional>
#include <string>
#include <variant>

namespace orrelo {

/// Loads what reward tabs show; it has no state, and all tabs of a kit share it. Any thread.
class RewardViewModel final : public std::enable_shared_from_this<RewardViewModel> {
 public:
  struct Input {
    /// Loads for this user; a new value ends the load of the one before.
    reactive::Infallible<std::optional<std::string>> trigger;
  };

  struct Loaded {
    Reward reward;
    BrandTheme brandTheme;
    friend bool operator==(const Loaded&, const Loaded&) = default;
  };
  struct Failed {
    Error error;
    friend bool operator==(const Failed&, const Failed&) = default;
  };
  struct Loading {
    friend bool operator==(const Loading&, const Loading&) = default;
  };
  using Output = std::variant<Loaded, Failed, Loading>;

  static std::shared_ptr<RewardViewModel> create(std::shared_ptr<FetchRewardUseCase> fetchRewardUseCase,
                                                 std::shared_ptr<FetchConfigUseCase> fetchConfigUseCase);

  /// `Loading` at each trigger, then `Loaded` or `Failed`: with `notLoggedIn` for a trigger without a user,
  /// and with `referenceDeallocation` after the view model's destruction. Failures do not end the stream.
  reactive::Observable<Output> transform(const Input& input) const;

 private:
  RewardViewModel(std::shared_ptr<FetchRewardUseCase> fetchRewardUseCase,
                  std::shared_ptr<FetchConfigUseCase> fetchConfigUseCase);

  reactive::Observable<Loaded> load(const std::optional<std::string>& userId) const;

  const std::shared_ptr<FetchRewardUseCase> fetchRewardUseCase_;
  const std::shared_ptr<FetchConfigUseCase> fetchConfigUseCase_;
};

}  // namespace orrelo
