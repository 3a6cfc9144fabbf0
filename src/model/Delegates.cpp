#include "model/Delegates.h"

#include <mutex>

namespace orrelo {
namespace {

template <class Delegate>
class WeakSlot {
 public:
  std::shared_ptr<Delegate> get() const {
    const std::lock_guard lock(mutex_);
    return delegate_.lock();
  }
  void set(const std::shared_ptr<Delegate>& delegate) {
    const std::lock_guard lock(mutex_);
    delegate_ = delegate;
  }

 private:
  mutable std::mutex mutex_;
  std::weak_ptr<Delegate> delegate_;
};

template <class Delegate>
WeakSlot<Delegate>& slot() {
  static auto* const slot = new WeakSlot<Delegate>;
  return *slot;
}

}  // namespace

std::shared_ptr<ORLUserEventDelegate> userEventDelegate() {
  return slot<ORLUserEventDelegate>().get();
}
void setUserEventDelegate(const std::shared_ptr<ORLUserEventDelegate>& delegate) {
  slot<ORLUserEventDelegate>().set(delegate);
}

std::shared_ptr<ORLOptInMarketingCampaignDelegate> optInMarketingCampaignDelegate() {
  return slot<ORLOptInMarketingCampaignDelegate>().get();
}
void setOptInMarketingCampaignDelegate(const std::shared_ptr<ORLOptInMarketingCampaignDelegate>& delegate) {
  slot<ORLOptInMarketingCampaignDelegate>().set(delegate);
}

}  // namespace orrelo
