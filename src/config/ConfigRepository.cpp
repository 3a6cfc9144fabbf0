#include "config/ConfigRepository.h"

#include "base/explain.h"
#include "reactive/Observable.h"

#include <chrono>
#include <utility>

namespace orrelo {
namespace {

constexpr std::chrono::seconds cacheLifetime{60};

}  // namespace

ConfigRepositoryImpl::ConfigRepositoryImpl(ConfigLocalDataSource localDataSource,
                                           ConfigRemoteDataSource remoteDataSource,
                                           CurrentDateGenerator currentDateGenerator,
                                           reactive::SchedulerPtr scheduler)
    : localDataSource_(std::move(localDataSource)),
      remoteDataSource_(std::move(remoteDataSource)),
      currentDateGenerator_(std::move(currentDateGenerator)),
      scheduler_(std::move(scheduler)) {
  cacheExpiredDate_ = currentDateGenerator_() + cacheLifetime;
}

std::shared_ptr<ConfigRepositoryImpl> ConfigRepositoryImpl::create(ConfigLocalDataSource localDataSource,
                                                                   ConfigRemoteDataSource remoteDataSource,
                                                                   CurrentDateGenerator currentDateGenerator,
                                                                   reactive::SchedulerPtr scheduler) {
  const std::shared_ptr<ConfigRepositoryImpl> repository(new ConfigRepositoryImpl(
      std::move(localDataSource), std::move(remoteDataSource), std::move(currentDateGenerator), scheduler));
  repository->fetch().subscribeOn(std::move(scheduler)).subscribe().disposedBy(repository->disposeBag_);
  return repository;
}

std::shared_ptr<const Config> ConfigRepositoryImpl::freshConfig() const {
  const std::lock_guard lock(mutex_);
  // The cached configuration is still valid at the moment of expiry itself.
  return cachedConfig_ && *cacheExpiredDate_ >= currentDateGenerator_() ? cachedConfig_ : nullptr;
}

reactive::Observable<Config> ConfigRepositoryImpl::fetch() {
  if (const auto config = freshConfig()) {
    // Emits the shared instance without copying it, since every event calls this.
    return reactive::create<Config>([config](const reactive::AnyObserver<Config>& observer) {
      observer.onNext(*config);
      observer.onCompleted();
      return reactive::Disposables::create();
    });
  }
  const auto remote = remoteDataSource_.fetch()
                          .observeOn(scheduler_)
                          .doOn({.onNext = [weak = weak_from_this()](const Config& config) {
                            if (const auto self = weak.lock()) self->save(config);
                          }});
  const auto local = localDataSource_.load();
  return remote
      .doOn({.onError =
                 [weak = weak_from_this(), local](const Error& error) {
                   if (const auto self = weak.lock()) self->fallBack(local, error);
                 }})
      .catchAndReturn(local.value_or(Config::defaults()));
}

void ConfigRepositoryImpl::save(const Config& config) {
  localDataSource_.save(config);
  const auto remembered = std::make_shared<const Config>(config);
  const auto expiry = currentDateGenerator_() + cacheLifetime;
  const std::lock_guard lock(mutex_);
  cachedConfig_ = remembered;
  *disabled_ = !config.sdkEnable;
  cacheExpiredDate_ = expiry;
  status_ = {ORLDiagnostics::ConfigurationSource::service, expiry - cacheLifetime, config.sdkEnable, {}, {}};
}

void ConfigRepositoryImpl::fallBack(const std::optional<Config>& local, const Error& error) {
  explain(ExplanationLevel::warning, [&] {
    return "The service's configuration could not be fetched: " + error.description() +
           (local ? ". The last one that came is used."
                  : ". None is known yet: events are dropped, and screens are empty.");
  });
  using Source = ORLDiagnostics::ConfigurationSource;
  const auto now = currentDateGenerator_();
  const std::lock_guard lock(mutex_);
  status_.source = local ? Source::device : Source::defaults;
  status_.isEnabled = local && local->sdkEnable;
  status_.failure = error.description();
  status_.failureTime = now;
}

ORLDiagnostics::Configuration ConfigRepositoryImpl::status() const {
  const std::lock_guard lock(mutex_);
  return status_;
}

}  // namespace orrelo
