#pragma once

#include <orrelo/Export.h>
#include <orrelo/platform/Application.h>
#include <orrelo/platform/ApplicationObservers.h>

#include <atomic>
#include <functional>
#include <string>
#include <utility>

namespace orrelo {

/// Detects nothing by itself: the front reports signals and settings to it.
class ORRELO_EXPORT PosixApplication final : public Application {
 public:
  Registration observe(Signal signal, std::function<void()> callback) override {
    return observers_.observe(signal, std::move(callback));
  }
  /// False until an opener is set.
  bool canOpen(const Url& url) const override { return opener_.canOpen && opener_.canOpen(url); }
  void open(const Url& url) override {
    if (opener_.open) opener_.open(url);
  }
  /// Logs a warning until a function is set, like `share`.
  void setPasteboard(const std::string& text) override;
  void share(const std::string& text) override;
  double screenScale() const override { return screenScale_; }
  bool prefersReducedMotion() const override { return prefersReducedMotion_; }

  /// The functions that open URLs. Must be set before the kit is used.
  struct UrlOpener {
    std::function<bool(const Url&)> canOpen;
    std::function<void(const Url&)> open;
  };
  void setUrlOpener(UrlOpener opener) { opener_ = std::move(opener); }

  /// Called on the main thread.
  using TextHandler = std::function<void(const std::string& text)>;
  /// Sets the function that replaces the pasteboard's content with a text. Must be called before the kit is
  /// used; a later call replaces the former function.
  void setPasteboardWriter(TextHandler writer) { pasteboardWriter_ = std::move(writer); }
  /// Sets the function that offers the user ways to send a text to somebody. Must be called before the kit is
  /// used; a later call replaces the former function.
  void setSharer(TextHandler sharer) { sharer_ = std::move(sharer); }

  /// Main thread only.
  void send(Signal signal) { observers_.send(signal); }
  void setScreenScale(double scale) { screenScale_ = scale; }
  void setPrefersReducedMotion(bool prefers) { prefersReducedMotion_ = prefers; }

 private:
  UrlOpener opener_;
  TextHandler pasteboardWriter_;
  TextHandler sharer_;
  std::atomic<double> screenScale_ = 1.0;
  std::atomic<bool> prefersReducedMotion_ = false;
  ApplicationObservers observers_;
};

}  // namespace orrelo
