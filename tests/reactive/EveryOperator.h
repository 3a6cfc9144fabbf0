#pragma once

#include "reactive/Combining.h"
#include "support/Probe.h"
#include "support/VirtualTimeScheduler.h"

namespace orrelo::test {

/// What an operator under test may use. Its own callback, where it has one, calls `callback` first.
struct Setting {
  std::shared_ptr<VirtualTimeScheduler> scheduler = std::make_shared<VirtualTimeScheduler>();
  std::function<void()> callback = [] {};
};

using Start = std::function<void(NotesPtr)>;

struct OperatorCase {
  std::string name;
  std::function<Start(reactive::Observable<int>, const Setting&)> chain;
  /// What follows when the source sends 1, 2, 3 and its completion.
  Lines afterCompletion;
  /// What follows when the source sends 1 and an error.
  Lines afterError;
  bool callsBack;
};

inline void PrintTo(const OperatorCase& operatorCase, std::ostream* stream) {
  *stream << operatorCase.name;
}

/// `makeChain` turns a source and a Setting into the stream under test.
template <class MakeChain>
OperatorCase operatorCase(std::string name, MakeChain makeChain, Lines afterCompletion, Lines afterError,
                          bool callsBack) {
  auto chain = [makeChain](reactive::Observable<int> source, const Setting& setting) -> Start {
    return
        [stream = makeChain(std::move(source), setting)](NotesPtr notes) { watch(stream, std::move(notes)); };
  };
  return {std::move(name), chain, std::move(afterCompletion), std::move(afterError), callsBack};
}

inline std::vector<OperatorCase> operatorsWithCallbacks() {
  using Stream = reactive::Observable<int>;
  using reactive::just, reactive::Maybe;
  const Lines three = {"1", "2", "3", "completed"};
  const Lines failed = {"1", "error broken"};
  const Lines tooMany = {"1", "error moreThanOneElement"};
  const auto same = [](const Setting& s) { return [f = s.callback](int i) { return f(), i; }; };
  const auto isOdd = [](const Setting& s) { return [f = s.callback](int i) { return f(), i % 2 == 1; }; };
  const auto inner = [](const Setting& s) { return [f = s.callback](int i) { return f(), just(i); }; };
  const auto add = [](auto name, auto chain, Lines onCompletion, Lines onError) {
    return operatorCase(name, chain, std::move(onCompletion), std::move(onError), true);
  };
  return {
      add(
          "map", [=](Stream in, const Setting& s) { return in.map(same(s)); }, three, failed),
      add(
          "compactMap",
          [=](Stream in, const Setting& s) {
            return in.compactMap(
                [f = s.callback](int i) { return f(), i % 2 == 1 ? std::optional(i) : std::nullopt; });
          },
          {"1", "3", "completed"}, failed),
      add(
          "filter", [=](Stream in, const Setting& s) { return in.filter(isOdd(s)); }, {"1", "3", "completed"},
          failed),
      add(
          "doOnNext",
          [](Stream in, const Setting& s) { return in.doOn({.onNext = [f = s.callback](int) { f(); }}); },
          three, failed),
      add(
          "flatMap", [=](Stream in, const Setting& s) { return in.flatMap(inner(s)); }, three, failed),
      add(
          "flatMapLatest", [=](Stream in, const Setting& s) { return in.flatMapLatest(inner(s)); }, three,
          failed),
      add(
          "concatMap", [=](Stream in, const Setting& s) { return in.concatMap(inner(s)); }, three, failed),
      add(
          "maybeMap", [=](Stream in, const Setting& s) { return in.asMaybe().map(same(s)).asObservable(); },
          tooMany, failed),
      add(
          "maybeFlatMap",
          [](Stream in, const Setting& s) {
            return in.asMaybe()
                .flatMap([f = s.callback](int i) { return f(), Maybe<int>::just(i); })
                .asObservable();
          },
          tooMany, failed),
      add("eventPipeline",
          [](Stream in, const Setting& s) {
            return in.buffer(std::chrono::seconds(1), 2, s.scheduler)
                .observeOn(s.scheduler)
                .concatMap([f = s.callback](const std::vector<int>& list) { return f(), just(list); })
                .retry(2);
          },
          {"[1 2]", "[3]", "completed"}, {"error broken"}),
  };
}

inline std::vector<OperatorCase> operatorsWithoutCallbacks() {
  using Stream = reactive::Observable<int>;
  using namespace reactive;
  using std::chrono::seconds;
  const Lines three = {"1", "2", "3", "completed"};
  const Lines failed = {"1", "error broken"};
  const Lines replaced = {"1", "9", "completed"};
  const Lines tooMany = {"1", "error moreThanOneElement"};
  const auto add = [](auto name, auto chain, Lines onCompletion, Lines onError) {
    return operatorCase(name, chain, std::move(onCompletion), std::move(onError), false);
  };
  return {
      add(
          "distinctUntilChanged", [](Stream in, auto&) { return in.distinctUntilChanged(); }, three, failed),
      add("materialize", [](Stream in, auto&) { return in.materialize(); },
          {"<1>", "<2>", "<3>", "<completed>", "completed"}, {"<1>", "<error broken>", "completed"}),
      add(
          "dematerialize", [](Stream in, auto&) { return in.materialize().dematerialize<int>(); }, three,
          failed),
      add(
          "catchAndReturn", [](Stream in, auto&) { return in.catchAndReturn(9); }, three, replaced),
      add(
          "asInfallible", [](Stream in, auto&) { return in.asInfallible(9).asObservable(); }, three,
          replaced),
      add("buffer", [](Stream in, auto& s) { return in.buffer(seconds(1), 2, s.scheduler); },
          {"[1 2]", "[3]", "completed"}, {"error broken"}),
      add(
          "throttleFirst", [](Stream in, auto& s) { return in.throttle(seconds(1), false, s.scheduler); },
          {"1", "completed"}, failed),
      add(
          "throttleLatest", [](Stream in, auto& s) { return in.throttle(seconds(1), true, s.scheduler); },
          {"1", "3", "completed"}, failed),
      add(
          "retry", [](Stream in, auto&) { return in.retry(2); }, three, failed),
      add(
          "subscribeOn", [](Stream in, auto& s) { return in.subscribeOn(s.scheduler); }, three, failed),
      add(
          "observeOn", [](Stream in, auto& s) { return in.observeOn(s.scheduler); }, three, failed),
      add(
          "asMaybe", [](Stream in, auto&) { return in.asMaybe().asObservable(); }, tooMany, failed),
      add(
          "ifEmpty", [](Stream in, auto&) { return in.asMaybe().ifEmpty(7).asObservable(); }, tooMany,
          failed),
      add(
          "ifEmptySwitchTo",
          [](Stream in, auto&) { return in.asMaybe().ifEmptySwitchTo(Maybe<int>::just(7)).asObservable(); },
          tooMany, failed),
      add(
          "merge",
          [](Stream in, auto&) {
            return merge<int>({in, empty<int>()});
          },
          three, failed),
      add("combineLatest", [](Stream in, auto&) { return combineLatest(just(0), in); },
          {"[0 1]", "[0 2]", "[0 3]", "completed"}, {"[0 1]", "error broken"}),
      add("zipOfTwo", [](Stream in, auto&) { return zip(upTo(5), in); },
          {"[1 1]", "[2 2]", "[3 3]", "completed"}, {"[1 1]", "error broken"}),
      add("zipOfThree", [](Stream in, auto&) { return zip(upTo(5), upTo(4), in); },
          {"[1 1 1]", "[2 2 2]", "[3 3 3]", "completed"}, {"[1 1 1]", "error broken"}),
  };
}

inline std::vector<OperatorCase> everyOperator() {
  auto all = operatorsWithCallbacks();
  for (auto& each : operatorsWithoutCallbacks()) all.push_back(std::move(each));
  return all;
}

}  // namespace orrelo::test
