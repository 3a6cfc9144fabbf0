#include "campaign/LoadingState.h"

#include "reactive/Observable.h"

namespace orrelo {

reactive::Observable<bool> LoadingState::stream() const {
  return isLoading_.asObservable().distinctUntilChanged();
}

void LoadingState::set(bool isLoading, bool isFinal) {
  const std::lock_guard lock(mutex_);
  if (hasFinished_) return;
  hasFinished_ = isFinal;
  isLoading_.onNext(isLoading);
}

}  // namespace orrelo
