#pragma once

#include <functional>
#include <memory>
#include <mutex>
#include <vector>

namespace orrelo::reactive {

class DisposeBag;

/// A cancellable operation. Further calls of `dispose` do nothing. Any thread.
class Cancelable {
 public:
  virtual ~Cancelable() = default;

  virtual void dispose() = 0;
  virtual bool isDisposed() const = 0;
};

/// A handle to a subscription or another operation. Destroying the handle cancels nothing.
class Disposable {
 public:
  /// An empty handle, which counts as disposed.
  Disposable() = default;
  Disposable(std::shared_ptr<Cancelable> cancelable) : cancelable_(std::move(cancelable)) {}

  void dispose() const {
    if (cancelable_) cancelable_->dispose();
  }
  bool isDisposed() const { return !cancelable_ || cancelable_->isDisposed(); }
  /// Adds the handle to a bag, which disposes it when the bag is destroyed.
  void disposedBy(DisposeBag& bag) const;

 private:
  std::shared_ptr<Cancelable> cancelable_;
};

struct Disposables {
  static Disposable create() { return {}; }
  /// Calls `callback` at the first `dispose` and then destroys it.
  static Disposable create(std::function<void()> callback);
};

/// Holds one Disposable, which can be set late or replaced. If set after `dispose`, it is disposed at once.
class SerialDisposable final : public Cancelable {
 public:
  void set(Disposable disposable);
  void dispose() override;
  bool isDisposed() const override;

 private:
  mutable std::mutex mutex_;
  bool disposed_ = false;
  Disposable current_;
};

/// Holds several Disposables and disposes them outside its lock. One that is inserted after `dispose` is
/// disposed at once. Entries that have ended by themselves are removed from time to time, so that the size
/// stays within twice the number of live entries.
class CompositeDisposable final : public Cancelable {
 public:
  void insert(Disposable disposable);
  void dispose() override;
  bool isDisposed() const override;
  /// The number of entries, including ended ones that have not been removed yet.
  std::size_t size() const;

 private:
  mutable std::mutex mutex_;
  bool disposed_ = false;
  std::size_t sweepAt_ = 16;
  std::vector<Disposable> disposables_;
};

/// Disposes its handles when it is destroyed.
class DisposeBag {
 public:
  DisposeBag() = default;
  DisposeBag(const DisposeBag&) = delete;
  DisposeBag& operator=(const DisposeBag&) = delete;
  ~DisposeBag() { composite_.dispose(); }

  void insert(Disposable disposable) { composite_.insert(std::move(disposable)); }
  void dispose() { composite_.dispose(); }
  std::size_t size() const { return composite_.size(); }

 private:
  CompositeDisposable composite_;
};

}  // namespace orrelo::reactive
