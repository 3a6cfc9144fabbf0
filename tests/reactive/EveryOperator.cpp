#include "EveryOperator.h"

#include "reactive/Combining.h"

namespace orrelo::test {
namespace {

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

std::vector<OperatorCase> operatorsWithoutCallbacks() {
  using Stream = reactive::Observable<int>;
  using namespace reactive;
  using std::chrono::seconds;
  const Lines three = {"1", "2", "3", "completed"};
  const Lines failed = {"1", "error broken"};
  const Lines replaced = {"1", "9", "completed"};
  const Lines tooMany = {"1", "error moreThanOneElement"};
  const auto add = [](auto name, Lines onCompletion, Lines onError, auto chain) {
    return operatorCase(name, chain, std::move(onCompletion), std::move(onError), false);
  };
  return {
      add("distinctUntilChanged", three, failed, [](Stream in, auto&) { return in.distinctUntilChanged(); }),
      add("materialize", {"<1>", "<2>", "<3>", "<completed>", "completed"},
          {"<1>", "<error broken>", "completed"}, [](Stream in, auto&) { return in.materialize(); }),
      add("dematerialize", three, failed,
          [](Stream in, auto&) { return in.materialize().dematerialize<int>(); }),
      add("catchAndReturn", three, replaced, [](Stream in, auto&) { return in.catchAndReturn(9); }),
      add("asInfallible", three, replaced,
          [](Stream in, auto&) { return in.asInfallible(9).asObservable(); }),
      add("buffer", {"[1 2]", "[3]", "completed"}, {"error broken"},
          [](Stream in, auto& s) { return in.buffer(seconds(1), 2, s.scheduler); }),
      add("throttleFirst", {"1", "completed"}, failed,
          [](Stream in, auto& s) { return in.throttle(seconds(1), false, s.scheduler); }),
      add("throttleLatest", {"1", "3", "completed"}, failed,
          [](Stream in, auto& s) { return in.throttle(seconds(1), true, s.scheduler); }),
      add("retry", three, failed, [](Stream in, auto&) { return in.retry(2); }),
      add("subscribeOn", three, failed, [](Stream in, auto& s) { return in.subscribeOn(s.scheduler); }),
      add("observeOn", three, failed, [](Stream in, auto& s) { return in.observeOn(s.scheduler); }),
      add("asMaybe", tooMany, failed, [](Stream in, auto&) { return in.asMaybe().asObservable(); }),
      add("ifEmpty", tooMany, failed,
          [](Stream in, auto&) { return in.asMaybe().ifEmpty(7).asObservable(); }),
      add("ifEmptySwitchTo", tooMany, failed,
          [](Stream in, auto&) { return in.asMaybe().ifEmptySwitchTo(Maybe<int>::just(7)).asObservable(); }),
      add("merge", three, failed,
          [](Stream in, auto&) {
            return merge<int>({in, empty<int>()});
          }),
      add("combineLatest", {"[0 1]", "[0 2]", "[0 3]", "completed"}, {"[0 1]", "error broken"},
          [](Stream in, auto&) { return combineLatest(just(0), in); }),
      add("zipOfTwo", {"[1 1]", "[2 2]", "[3 3]", "completed"}, {"[1 1]", "error broken"},
          [](Stream in, auto&) { return zip(upTo(5), in); }),
      add("zipOfThree", {"[1 1 1]", "[2 2 2]", "[3 3 3]", "completed"}, {"[1 1 1]", "error broken"},
          [](Stream in, auto&) { return zip(upTo(5), upTo(4), in); }),
  };
}

}  // namespace

std::vector<OperatorCase> operatorsWithCallbacks() {
  using Stream = reactive::Observable<int>;
  using reactive::just, reactive::Maybe;
  const Lines three = {"1", "2", "3", "completed"};
  const Lines odd = {"1", "3", "completed"};
  const Lines failed = {"1", "error broken"};
  const Lines tooMany = {"1", "error moreThanOneElement"};
  const auto same = [](const Setting& s) { return [f = s.callback](int i) { return f(), i; }; };
  const auto ifOdd = [](const Setting& s) {
    return [f = s.callback](int i) { return f(), i % 2 == 1 ? std::optional(i) : std::nullopt; };
  };
  const auto isOdd = [](const Setting& s) { return [f = s.callback](int i) { return f(), i % 2 == 1; }; };
  const auto inner = [](const Setting& s) { return [f = s.callback](int i) { return f(), just(i); }; };
  const auto maybe = [](const Setting& s) {
    return [f = s.callback](int i) { return f(), Maybe<int>::just(i); };
  };
  const auto add = [](auto name, Lines onCompletion, Lines onError, auto chain) {
    return operatorCase(name, chain, std::move(onCompletion), std::move(onError), true);
  };
  return {
      add("map", three, failed, [=](Stream in, auto& s) { return in.map(same(s)); }),
      add("compactMap", odd, failed, [=](Stream in, auto& s) { return in.compactMap(ifOdd(s)); }),
      add("filter", odd, failed, [=](Stream in, auto& s) { return in.filter(isOdd(s)); }),
      add("doOnNext", three, failed,
          [](Stream in, auto& s) { return in.doOn({.onNext = [f = s.callback](int) { f(); }}); }),
      add("flatMap", three, failed, [=](Stream in, auto& s) { return in.flatMap(inner(s)); }),
      add("flatMapOfTwo", three, failed, [=](Stream in, auto& s) { return in.flatMap(inner(s), 2); }),
      add("flatMapLatest", three, failed, [=](Stream in, auto& s) { return in.flatMapLatest(inner(s)); }),
      add("concatMap", three, failed, [=](Stream in, auto& s) { return in.concatMap(inner(s)); }),
      add("maybeMap", tooMany, failed,
          [=](Stream in, auto& s) { return in.asMaybe().map(same(s)).asObservable(); }),
      add("maybeFlatMap", tooMany, failed,
          [=](Stream in, auto& s) { return in.asMaybe().flatMap(maybe(s)).asObservable(); }),
      add("eventPipeline", {"[1 2]", "[3]", "completed"}, {"error broken"},
          [](Stream in, auto& s) {
            return in.buffer(std::chrono::seconds(1), 2, s.scheduler)
                .observeOn(s.scheduler)
                .concatMap([f = s.callback](const std::vector<int>& list) { return f(), just(list); })
                .retry(2);
          }),
  };
}

std::vector<OperatorCase> everyOperator() {
  auto all = operatorsWithCallbacks();
  for (auto& each : operatorsWithoutCallbacks()) all.push_back(std::move(each));
  return all;
}

}  // namespace orrelo::test
