#pragma once

#include "config/Config.h"
#include "config/ConfigLocalDataSource.h"
#include "config/ConfigRemoteDataSource.h"
#include "reactive/Disposable.h"
#include "reactive/ObservableType.h"
#include "reactive/Scheduler.h"

#include <orrelo/Date.h>
#include <orrelo/ORLDiagnostics.h>

#include <atomic>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>

namespace orrelo {

class ConfigRepository {
 public:
  virtual ~ConfigRepository() = default;

  /// Emits one configuration and completes; never fails. Any thread.
  virtual reactive::Observable<Config> fetch() = 0;
  /// The configuration that `fetch` would emit at once; null if it would ask the service. Any thread.
  virtual std::shared_ptr<const Config> freshConfig() const = 0;
  /// True as long as the last configuration from the service disables the kit, fresh or not. It can be read
  /// without a lock, since every event needs it.
  virtual std::shared_ptr<const std::atomic<bool>> disabled() const = 0;
  /// The last configuration that `fetch` has emitted. Any thread.
  virtual ORLDiagnostics::Configuration status() const = 0;
};

/// Caches the service's reply in memory for 60 seconds, then asks the service again. If that fails, falls
/// back to the copy on the device, and then to the defaults; fallbacks are not cached. Concurrent fetches
/// each send their own request.
class ConfigRepositoryImpl final : public ConfigRepository,
                                   public std::enable_shared_from_this<ConfigRepositoryImpl> {
 public:
  using CurrentDateGenerator = std::function<Date()>;

  /// Starts the first fetch on `scheduler`. Replies are handled there too, so that the configuration is not
  /// written to the device on the network's thread.
  static std::shared_ptr<ConfigRepositoryImpl> create(ConfigLocalDataSource localDataSource,
                                                      ConfigRemoteDataSource remoteDataSource,
                                                      CurrentDateGenerator currentDateGenerator,
                                                      reactive::SchedulerPtr scheduler);

  reactive::Observable<Config> fetch() override;
  std::shared_ptr<const Config> freshConfig() const override;
  std::shared_ptr<const std::atomic<bool>> disabled() const override { return disabled_; }
  ORLDiagnostics::Configuration status() const override;

 private:
  ConfigRepositoryImpl(ConfigLocalDataSource localDataSource, ConfigRemoteDataSource remoteDataSource,
                       CurrentDateGenerator currentDateGenerator, reactive::SchedulerPtr scheduler);

  void save(const Config& config);
  void fallBack(const std::optional<Config>& local, const Error& error);

  mutable std::mutex mutex_;
  std::shared_ptr<const Config> cachedConfig_;
  std::optional<Date> cacheExpiredDate_;
  ORLDiagnostics::Configuration status_;
  const std::shared_ptr<std::atomic<bool>> disabled_ = std::make_shared<std::atomic<bool>>(false);
  ConfigLocalDataSource localDataSource_;
  ConfigRemoteDataSource remoteDataSource_;
  CurrentDateGenerator currentDateGenerator_;
  reactive::SchedulerPtr scheduler_;
  reactive::DisposeBag disposeBag_;
};

}  // namespace orrelo
