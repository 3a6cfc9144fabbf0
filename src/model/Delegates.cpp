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
  std::shared_ptr<Delegate> called() const {
    const std::lock_guard lock(mutex_);
    auto delegate = delegate_.lock();
    return delegate ? delegate : ofFront_.lock();
  }
  void setOfFront(const std::shared_ptr<Delegate>& delegate) {
    const std::lock_guard lock(mutex_);
    ofFront_ = delegate;
  }

 private:
  mutable std::mutex mutex_;
  std::weak_ptr<Delegate> delegate_;
  std::weak_ptr<Delegate> ofFront_;
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

std::shared_ptr<ORLUserEventDelegate> calledUserEventDelegate() {
  return slot<ORLUserEventDelegate>().called();
}
void setUserEventDelegateOfFront(const std::shared_ptr<ORLUserEventDelegate>& delegate) {
  slot<ORLUserEventDelegate>().setOfFront(delegate);
}

std::shared_ptr<ORLOptInMarketingCampaignDelegate> calledOptInMarketingCampaignDelegate() {
  return slot<ORLOptInMarketingCampaignDelegate>().called();
}
void setOptInMarketingCampaignDelegateOfFront(
    const std::shared_ptr<ORLOptInMarketingCampaignDelegate>& delegate) {
  slot<ORLOptInMarketingCampaignDelegate>().setOfFront(delegate);
}

}  // namespace orrelo
