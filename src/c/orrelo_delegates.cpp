#include "c/Callback.h"
#include "c/handles.h"

#include <orrelo/ORLDelegates.h>
#include <orrelo/Orrelo.h>

#include <mutex>
#include <utility>

using namespace orrelo;
using namespace orrelo::c;

namespace {

class UserEventDelegate final : public ORLUserEventDelegate {
 public:
  using Function = Callback<const char*, const orrelo_values*>;

  explicit UserEventDelegate(Function function) : function_(std::move(function)) {}
  void userEventDidOccur(const ORLUserEvent& event) override {
    function_(event.name.c_str(), event.values ? out(&*event.values) : nullptr);
  }

 private:
  Function function_;
};

class OptInDelegate final : public ORLOptInMarketingCampaignDelegate {
 public:
  using Function = Callback<const orrelo_view_controller*>;

  explicit OptInDelegate(Function function) : function_(std::move(function)) {}
  void onMoveButtonTapped(const std::shared_ptr<ViewController>& screen) override {
    const orrelo_view_controller handle{screen};
    function_(&handle);
  }

 private:
  Function function_;
};

/// Owns the host's delegate, which the façade holds weakly. The former one is released outside the lock.
template <class Delegate, class Set>
orrelo_status replace(typename Delegate::Function::Function function, void* context, orrelo_destroy destroy,
                      const Set& setDelegate) {
  static auto* const mutex = new std::mutex;
  static auto* const slot = new std::shared_ptr<Delegate>;
  return attempt([&] {
    typename Delegate::Function callback(function, context, destroy);
    auto delegate = callback ? std::make_shared<Delegate>(std::move(callback)) : nullptr;
    const std::lock_guard lock(*mutex);
    setDelegate(delegate);
    std::swap(*slot, delegate);
  });
}

}  // namespace

orrelo_status orrelo_set_user_event_delegate(orrelo_user_event delegate, void* context,
                                             orrelo_destroy destroy) {
  return replace<UserEventDelegate>(delegate, context, destroy, &Orrelo::setUserEventDelegate);
}

bool orrelo_has_user_event_delegate() {
  return Orrelo::userEventDelegate() != nullptr;
}

orrelo_status orrelo_set_opt_in_marketing_campaign_delegate(orrelo_move_button_tapped delegate, void* context,
                                                            orrelo_destroy destroy) {
  return replace<OptInDelegate>(delegate, context, destroy, &Orrelo::setOptInMarketingCampaignDelegate);
}

bool orrelo_has_opt_in_marketing_campaign_delegate() {
  return Orrelo::optInMarketingCampaignDelegate() != nullptr;
}
