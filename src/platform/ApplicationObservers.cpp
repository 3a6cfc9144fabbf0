#include <orrelo/platform/ApplicationObservers.h>

#include <utility>

namespace orrelo {

Application::Registration ApplicationObservers::observe(Application::Signal signal,
                                                        std::function<void()> callback) {
  auto observer = std::make_shared<const Observer>(Observer{signal, std::move(callback)});
  const std::lock_guard lock(mutex_);
  std::erase_if(observers_, [](const auto& weak) { return weak.expired(); });
  observers_.push_back(observer);
  return observer;
}

void ApplicationObservers::send(Application::Signal signal) {
  std::vector<std::weak_ptr<const Observer>> observers;
  {
    const std::lock_guard lock(mutex_);
    observers = observers_;
  }
  for (const auto& weak : observers) {
    if (const auto observer = weak.lock(); observer && observer->signal == signal) observer->callback();
  }
}

}  // namespace orrelo
