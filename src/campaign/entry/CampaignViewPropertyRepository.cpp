#include "campaign/entry/CampaignViewPropertyRepository.h"

#include "reactive/Observable.h"

namespace orrelo {

using Properties = reactive::Observable<FloatingActionButtonProperty>;

Properties CampaignViewPropertyRepositoryImpl::fetch(const std::string& userId) {
  return reactive::just(userId).flatMap([self = shared_from_this()](const std::string& id) -> Properties {
    if (self->isFisrtFetch_.exchange(false)) return self->fetchRemote(id);
    if (auto stored = self->localDataSource_.load()) return reactive::just(*std::move(stored));
    return self->fetchRemote(id);
  });
}

Properties CampaignViewPropertyRepositoryImpl::fetchRemote(const std::string& userId) const {
  return remoteDataSource_.fetch(userId).doOn(
      {.onNext = [local = localDataSource_](const FloatingActionButtonProperty& property) {
        local.save(property);
      }});
}

}  // namespace orrelo
