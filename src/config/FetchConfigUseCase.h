#pragma once

#include "config/Config.h"
#include "config/ConfigRepository.h"
#include "reactive/ObservableType.h"

#include <atomic>
#include <memory>
#include <utility>

namespace orrelo {

/// The features' access to the configuration.
class FetchConfigUseCase {
 public:
  virtual ~FetchConfigUseCase() = default;

  /// See ConfigRepository::fetch.
  virtual reactive::Observable<Config> fetch() = 0;
  /// See ConfigRepository::freshConfig.
  virtual std::shared_ptr<const Config> freshConfig() const = 0;
  /// See ConfigRepository::disabled.
  virtual std::shared_ptr<const std::atomic<bool>> disabled() const = 0;
  /// See ConfigRepository::status.
  virtual ORLDiagnostics::Configuration status() const { return {}; }
};

class FetchConfigUseCaseImpl final : public FetchConfigUseCase {
 public:
  explicit FetchConfigUseCaseImpl(std::shared_ptr<ConfigRepository> repository)
      : repository_(std::move(repository)) {}

  reactive::Observable<Config> fetch() override { return repository_->fetch(); }
  std::shared_ptr<const Config> freshConfig() const override { return repository_->freshConfig(); }
  std::shared_ptr<const std::atomic<bool>> disabled() const override { return repository_->disabled(); }
  ORLDiagnostics::Configuration status() const override { return repository_->status(); }

 private:
  std::shared_ptr<ConfigRepository> repository_;
};

}  // namespace orrelo
