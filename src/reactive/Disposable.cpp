#include "reactive/Disposable.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace orrelo::reactive {
namespace {

class CallbackCancelable final : public Cancelable {
 public:
  explicit CallbackCancelable(std::function<void()> callback) : callback_(std::move(callback)) {}

  void dispose() override {
    std::function<void()> callback;
    {
      const std::lock_guard lock(mutex_);
      disposed_ = true;
      callback = std::exchange(callback_, nullptr);
    }
    if (callback) callback();
  }

  bool isDisposed() const override {
    const std::lock_guard lock(mutex_);
    return disposed_;
  }

 private:
  mutable std::mutex mutex_;
  bool disposed_ = false;
  std::function<void()> callback_;
};

}  // namespace

void Disposable::disposedBy(DisposeBag& bag) const {
  bag.insert(*this);
}

Disposable Disposables::create(std::function<void()> callback) {
  return Disposable(std::make_shared<CallbackCancelable>(std::move(callback)));
}

void SerialDisposable::set(Disposable disposable) {
  {
    const std::lock_guard lock(mutex_);
    // The previous value is not disposed: callers replace it only after it has ended.
    std::swap(current_, disposable);
    if (!disposed_) return;
    std::swap(current_, disposable);
  }
  disposable.dispose();
}

void SerialDisposable::dispose() {
  Disposable current;
  {
    const std::lock_guard lock(mutex_);
    disposed_ = true;
    current = std::exchange(current_, {});
  }
  current.dispose();
}

bool SerialDisposable::isDisposed() const {
  const std::lock_guard lock(mutex_);
  return disposed_;
}

void CompositeDisposable::insert(Disposable disposable) {
  std::vector<Disposable> ended;  // destroyed outside the lock
  {
    const std::lock_guard lock(mutex_);
    if (!disposed_) {
      if (disposables_.size() >= sweepAt_) {
        const auto live = std::partition(disposables_.begin(), disposables_.end(),
                                         [](const Disposable& held) { return !held.isDisposed(); });
        ended.assign(std::make_move_iterator(live), std::make_move_iterator(disposables_.end()));
        disposables_.erase(live, disposables_.end());
        sweepAt_ = std::max<std::size_t>(16, 2 * disposables_.size());
      }
      disposables_.push_back(std::move(disposable));
      return;
    }
  }
  disposable.dispose();
}

void CompositeDisposable::dispose() {
  std::vector<Disposable> disposables;
  {
    const std::lock_guard lock(mutex_);
    disposed_ = true;
    disposables = std::exchange(disposables_, {});
  }
  for (const auto& disposable : disposables) disposable.dispose();
}

bool CompositeDisposable::isDisposed() const {
  const std::lock_guard lock(mutex_);
  return disposed_;
}

std::size_t CompositeDisposable::size() const {
  const std::lock_guard lock(mutex_);
  return disposables_.size();
}

}  // namespace orrelo::reactive
