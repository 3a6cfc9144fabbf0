#include "config/ConfigRepository.h"

#include "reactive/Observable.h"

#include <chrono>
#include <utility>

namespace orrelo {
namespace {

constexpr std::chrono::seconds cacheLifetime{60};

}  // namespace

ConfigRepositoryImpl::ConfigRepositoryImpl(ConfigLocalDataSource local, ConfigRemoteDataSource remote,
                                           CurrentDateGenerator currentDate, reactive::SchedulerPtr scheduler)
    : localDataSource(std::move(local)),
      remoteDataSource(std::move(remote)),
      currentDateGenerator(std::move(currentDate)),
      scheduler_(std::move(scheduler)) {
  cacheExpiredDate = currentDateGenerator() + cacheLifetime;
}

std::shared_ptr<ConfigRepositoryImpl> ConfigRepositoryImpl::create(ConfigLocalDataSource local,
                                                                   ConfigRemoteDataSource remote,
                                                                   CurrentDateGenerator currentDate,
                                                                   reactive::SchedulerPtr scheduler) {
  const std::shared_ptr<ConfigRepositoryImpl> repository(
      new ConfigRepositoryImpl(std::move(local), std::move(remote), std::move(currentDate), scheduler));
  repository->fetch().subscribeOn(std::move(scheduler)).subscribe().disposedBy(repository->disposeBag);
  return repository;
}

std::shared_ptr<const Config> ConfigRepositoryImpl::freshConfig() const {
  const std::lock_guard lock(mutex_);
  // The moment of expiry itself still counts as fresh.
  return cachedConfig && *cacheExpiredDate >= currentDateGenerator() ? cachedConfig : nullptr;
}

reactive::Observable<Config> ConfigRepositoryImpl::fetch() {
  if (const auto config = freshConfig()) {
    // The shared copy itself: this is asked for every event.
    return reactive::create<Config>([config](const reactive::AnyObserver<Config>& observer) {
      observer.onNext(*config);
      observer.onCompleted();
      return reactive::Disposables::create();
    });
  }
  const auto remote = remoteDataSource.fetch()
                          .observeOn(scheduler_)
                          .doOn({.onNext = [weak = weak_from_this()](const Config& config) {
                            if (const auto self = weak.lock()) self->save(config);
                          }});
  return remote.catchAndReturn(localDataSource.load().value_or(Config::defaults()));
}

void ConfigRepositoryImpl::save(const Config& config) {
  localDataSource.save(config);
  const auto remembered = std::make_shared<const Config>(config);
  const auto expiry = currentDateGenerator() + cacheLifetime;
  const std::lock_guard lock(mutex_);
  cachedConfig = remembered;
  cacheExpiredDate = expiry;
}

}  // namespace orrelo
