#include "viewkit/RxButton.h"

#include "reactive/Observable.h"

namespace orrelo {

void RxButton::onTouchUpInside() const {
  if (state.value().isEnabled) tap_.onNext({});
}

reactive::Observable<reactive::Unit> RxButton::tap() const {
  return tap_.asObservable().throttle(throttleInterval, true, reactive::MainScheduler::instance());
}

}  // namespace orrelo
