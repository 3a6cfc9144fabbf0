#pragma once

#include "config/Config.h"
#include "config/FetchConfigUseCase.h"
#include "reactive/Observable.h"

#include <atomic>
#include <memory>
#include <optional>

namespace orrelo::test {

/// Answers every fetch at once with `config`, or fails with `error`.
class FixedConfig final : public FetchConfigUseCase {
 public:
  explicit FixedConfig(Config config = Config::defaults()) : config(std::move(config)) {}

  reactive::Observable<Config> fetch() override {
    return error ? reactive::error<Config>(*error) : reactive::just(config);
  }

  std::shared_ptr<const Config> freshConfig() const override { return nullptr; }
  std::shared_ptr<const std::atomic<bool>> disabled() const override { return nullptr; }

  Config config;
  std::optional<Error> error;
};

}  // namespace orrelo::test
