#include "platform/posix/PosixApplication.h"

#include "base/explain.h"

namespace orrelo {

Application::Registration PosixApplication::observe(Signal signal, std::function<void()> callback) {
  auto observer = std::make_shared<const Observer>(Observer{signal, std::move(callback)});
  const std::lock_guard lock(mutex_);
  std::erase_if(observers_, [](const auto& weak) { return weak.expired(); });
  observers_.push_back(observer);
  return observer;
}

void PosixApplication::setPasteboard(const std::string& text) {
  if (pasteboardWriter_) return pasteboardWriter_(text);
  explain(ExplanationLevel::warning, "This host has no pasteboard");
}

void PosixApplication::share(const std::string& text) {
  if (sharer_) return sharer_(text);
  explain(ExplanationLevel::warning, "This host cannot share texts");
}

void PosixApplication::send(Signal signal) {
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
