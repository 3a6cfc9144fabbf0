#pragma once

#include <functional>
#include <memory>
#include <mutex>
#include <vector>

namespace orrelo::reactive {

class DisposeBag;

/// What can be cancelled. Any thread; the second `dispose` does nothing.
class Cancelable {
 public:
  virtual ~Cancelable() = default;

  virtual void dispose() = 0;
  virtual bool isDisposed() const = 0;
};

/// A handle on a subscription or on other work. Letting it go cancels nothing.
class Disposable {
 public:
  /// A handle on nothing, disposed already.
  Disposable() = default;
  Disposable(std::shared_ptr<Cancelable> cancelable) : cancelable_(std::move(cancelable)) {}

  void dispose() const {
    if (cancelable_) cancelable_->dispose();
  }
  bool isDisposed() const { return !cancelable_ || cancelable_->isDisposed(); }
  /// Hands it to a bag, which disposes of it when the bag goes.
  void disposedBy(DisposeBag& bag) const;

 private:
  std::shared_ptr<Cancelable> cancelable_;
};

struct Disposables {
  static Disposable create() { return {}; }
  /// Runs `callback` once, at the first `dispose`, and lets it go.
  static Disposable create(std::function<void()> callback);
};

/// Holds at most one upstream, which can come late or be replaced; what comes after `dispose` is disposed of
/// at once.
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

/// Holds several; disposes of them outside its lock, and of what comes after `dispose` at once. It forgets
/// what has ended by itself: its size stays within twice that of what lives.
class CompositeDisposable final : public Cancelable {
 public:
  void insert(Disposable disposable);
  void dispose() override;
  bool isDisposed() const override;
  /// How many it holds, ended ones that it has not swept out yet among them.
  std::size_t size() const;

 private:
  mutable std::mutex mutex_;
  bool disposed_ = false;
  std::size_t sweepAt_ = 16;
  std::vector<Disposable> disposables_;
};

/// Handles that are cancelled when the bag goes.
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
