#pragma once

#include "reactive/Observable.h"
#include "reactive/Scheduler.h"
#include "support/IntStreams.h"

#include <string>
#include <tuple>
#include <vector>

namespace orrelo::test {

inline std::string text(const std::string& value) {
  return value;
}
inline std::string text(reactive::Unit) {
  return "signal";
}
inline std::string text(const Error& error) {
  return "error " + error.caseName();
}
template <std::integral T>
std::string text(T number) {
  return std::to_string(number);
}
template <class T>
std::string text(const std::vector<T>& list) {
  std::string joined;
  for (const auto& element : list) joined += (joined.empty() ? "" : " ") + text(element);
  return "[" + joined + "]";
}
template <class... Ts>
std::string text(const std::tuple<Ts...>& row) {
  return std::apply([](const auto&... each) { return text(std::vector{text(each)...}); }, row);
}
template <class T>
std::string text(const reactive::Event<T>& event) {
  if (event.element() != nullptr) return "<" + text(*event.element()) + ">";
  return event.error() != nullptr ? "<" + text(*event.error()) + ">" : "<completed>";
}

using Lines = std::vector<std::string>;

/// The output that a Probe has received. When `clock` is set, each line begins with the time in milliseconds.
struct Notes {
  Lines lines = {};
  reactive::Disposable handle = {};
  std::function<void()> onElement = nullptr;
  bool disposesAtOnce = false;
  std::shared_ptr<const reactive::Scheduler> clock = nullptr;
  /// The next Probe takes it and owns it until it is destroyed.
  std::shared_ptr<int> sentinel = nullptr;

  void write(const std::string& line) {
    const auto time = clock ? std::to_string(clock->now() / std::chrono::milliseconds(1)) + ": " : "";
    lines.push_back(time + line);
  }
};
using NotesPtr = std::shared_ptr<Notes>;

/// The end of a chain which, unlike a Subscriber, records everything, also after an end, and cancels only
/// when the test says so.
template <class T>
class Probe final : public reactive::Observer<T> {
 public:
  explicit Probe(NotesPtr notes) : notes_(std::move(notes)), sentinel_(std::move(notes_->sentinel)) {}

  void onSubscribe(reactive::Disposable upstream) override {
    if (notes_->disposesAtOnce) upstream.dispose();
    notes_->handle = std::move(upstream);
  }
  void onNext(const T& element) override {
    notes_->write(text(element));
    if (notes_->onElement) notes_->onElement();
  }
  void onError(const Error& error) override { notes_->write(text(error)); }
  void onCompleted() override { notes_->write("completed"); }

 private:
  NotesPtr notes_;
  std::shared_ptr<int> sentinel_;
};

template <class T>
void watch(const reactive::Observable<T>& stream, NotesPtr notes) {
  stream.subscribe(std::make_shared<Probe<T>>(std::move(notes)), nullptr);
}
template <class T>
NotesPtr watch(const reactive::Observable<T>& stream) {
  auto notes = std::make_shared<Notes>();
  watch(stream, notes);
  return notes;
}

inline Error broken() {
  return Error("Test", "broken");
}

/// Emits 1, 2, … `last`, then completes.
inline reactive::Observable<int> upTo(int last) {
  return reactive::create<int>([last](reactive::AnyObserver<int> observer) {
    for (int i = 1; i <= last; ++i) observer.onNext(i);
    observer.onCompleted();
    return reactive::Disposables::create();
  });
}

}  // namespace orrelo::test
