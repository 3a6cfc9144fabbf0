// The results of each operator and source that does not depend on time.

#include "reactive/Combining.h"
#include "reactive/Subjects.h"
#include "support/Probe.h"
#include "support/VirtualTimeScheduler.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace orrelo::test {
namespace {

using namespace reactive;

TEST(Create, DropsWhatIsSentAfterTheEndEvenWhenItWaits) {
  for (const bool fails : {false, true}) {
    std::optional<AnyObserver<Unit>> sink;
    const auto notes = watch(create<Unit>([&](AnyObserver<Unit> observer) {
      sink = observer;
      return Disposables::create();
    }));
    notes->onElement = [&] {  // while the gate is busy
      fails ? sink->onError(broken()) : sink->onCompleted();
      sink->onNext({});
      fails ? sink->onCompleted() : sink->onError(broken());
    };
    sink->onNext({});
    EXPECT_EQ(notes->lines, (Lines{"signal", fails ? "error broken" : "completed"}));
    EXPECT_TRUE(sink->isDisposed());
  }
}

TEST(Create, AnExceptionIsTheStreamsErrorAndACancelledSubscriptionRunsNothing) {
  const auto throwing = create<int>([](AnyObserver<int> observer) -> Disposable {
    observer.onNext(1);
    throw broken();
  });
  EXPECT_EQ(watch(throwing)->lines, (Lines{"1", "error broken"}));
  EXPECT_EQ(watch(error<int>(broken()))->lines, (Lines{"error broken"}));

  bool hasRun = false;
  const auto observed = create<int>([&](AnyObserver<int>) {
    hasRun = true;
    return Disposables::create();
  });
  EXPECT_EQ(watch(combineLatest(error<int>(broken()), observed))->lines, (Lines{"error broken"}));
  EXPECT_EQ(watch(zip(empty<int>(), observed))->lines, (Lines{"completed"}));
  EXPECT_EQ(watch(merge<int>({error<int>(broken()), observed}))->lines, (Lines{"error broken"}));
  EXPECT_FALSE(hasRun);
}

TEST(DistinctUntilChanged, DropsOnlyRepetitionsInARow) {
  const PublishSubject<int> subject;
  const auto notes = watch(subject.asObservable().distinctUntilChanged());
  for (const int i : {1, 1, 2, 2, 2, 1}) subject.onNext(i);
  EXPECT_EQ(notes->lines, (Lines{"1", "2", "1"}));
}

TEST(DoOn, RunsBeforeWhatItAccompaniesAndMayFailIt) {
  const auto seen = std::make_shared<Notes>();
  const auto effects = Handlers<int>{.onNext = [&](int i) { seen->lines.push_back("before " + text(i)); },
                                     .onError = [](const Error&) { throw Error("Test", "worse"); },
                                     .onCompleted = [] { throw broken(); }};
  watch(upTo(2).doOn(effects), seen);
  EXPECT_EQ(seen->lines, (Lines{"before 1", "1", "before 2", "2", "error broken"}));
  EXPECT_EQ(watch(error<int>(broken()).doOn(effects))->lines, (Lines{"error worse"}));
}

TEST(Retry, CountsSubscriptionsOverTheLifeOfTheChain) {
  std::vector<AnyObserver<int>> attempts;
  int cancelled = 0;
  const auto notes = watch(create<int>([&](AnyObserver<int> observer) {
                             attempts.push_back(observer);
                             return Disposables::create([&] { ++cancelled; });
                           }).retry(2));
  attempts.at(0).onNext(1);
  attempts.at(0).onError(broken());
  ASSERT_EQ(attempts.size(), 2u);
  EXPECT_EQ(cancelled, 1);
  attempts.at(0).onNext(7);
  attempts.at(1).onNext(2);  // an element between the errors does not reset the count
  attempts.at(1).onError(broken());
  EXPECT_EQ(attempts.size(), 2u);
  EXPECT_EQ(cancelled, 2);
  EXPECT_EQ(notes->lines, (Lines{"1", "2", "error broken"}));
}

/// Three inner streams that the test sends to.
class Flattening : public testing::Test {
 protected:
  auto inner() {
    return [this](int i) { return inners_.at(static_cast<std::size_t>(i)).asObservable(); };
  }

  PublishSubject<int> outer_;
  std::vector<PublishSubject<int>> inners_ = std::vector<PublishSubject<int>>(3);
};

TEST_F(Flattening, FlatMapMergesAndEndsWithTheLastInnerStream) {
  const auto notes = watch(outer_.asObservable().flatMap(inner()));
  outer_.onNext(0);
  outer_.onNext(1);
  inners_[1].onNext(10);
  inners_[0].onNext(1);
  outer_.onCompleted();
  inners_[0].onCompleted();
  inners_[1].onNext(11);
  inners_[1].onCompleted();
  EXPECT_EQ(notes->lines, (Lines{"10", "1", "11", "completed"}));
}

TEST_F(Flattening, AnInnerErrorEndsAllAndCancelsTheRest) {
  const auto notes = watch(outer_.asObservable().flatMap(inner()));
  outer_.onNext(0);
  outer_.onNext(1);
  inners_[0].onError(broken());
  EXPECT_EQ(notes->lines, (Lines{"error broken"}));
  EXPECT_FALSE(outer_.hasObservers());
  EXPECT_FALSE(inners_[1].hasObservers());
}

TEST_F(Flattening, FlatMapLatestDropsTheFormerInnerStream) {
  const auto notes = watch(outer_.asObservable().flatMapLatest(inner()));
  outer_.onNext(0);
  inners_[0].onNext(1);
  outer_.onNext(1);
  EXPECT_FALSE(inners_[0].hasObservers());
  inners_[0].onError(broken());
  inners_[1].onNext(2);
  outer_.onCompleted();
  inners_[1].onNext(3);
  inners_[1].onCompleted();
  EXPECT_EQ(notes->lines, (Lines{"1", "2", "3", "completed"}));
}

TEST_F(Flattening, ConcatMapStartsTheNextInnerStreamWhenTheOneBeforeEnds) {
  const auto notes = watch(outer_.asObservable().concatMap(inner()));
  for (const int i : {0, 1, 2}) outer_.onNext(i);
  EXPECT_FALSE(inners_[1].hasObservers());
  outer_.onCompleted();
  inners_[1].onNext(99);  // nobody listens yet
  inners_[0].onNext(1);
  inners_[0].onCompleted();
  inners_[1].onNext(2);
  inners_[2].onCompleted();  // before its turn
  inners_[1].onCompleted();
  EXPECT_EQ(notes->lines, (Lines{"1", "2", "completed"}));
}

TEST_F(Flattening, ConcatMapDropsWhatWaitsAtAnErrorAndAtDisposal) {
  for (const bool fails : {true, false}) {
    const PublishSubject<int> first;
    int started = 0;
    const auto notes = watch(outer_.asObservable().concatMap([&](int) {
      ++started;
      return first.asObservable();
    }));
    outer_.onNext(0);
    outer_.onNext(1);
    fails ? first.onError(broken()) : notes->handle.dispose();
    EXPECT_EQ(started, 1);
    EXPECT_FALSE(outer_.hasObservers());
    EXPECT_FALSE(first.hasObservers());
  }
}

TEST_F(Flattening, ConcatMapCostsNoStackForInnerStreamsThatEndAtOnce) {
  constexpr int count = 100'000;
  int sum = 0;
  bool completed = false;
  outer_.asObservable()
      .concatMap([this](int i) { return i == 0 ? inners_[0].asObservable() : just(1); })
      .subscribe({.onNext = [&](int i) { sum += i; }, .onCompleted = [&] { completed = true; }});
  for (int i = 0; i <= count; ++i) outer_.onNext(i);
  EXPECT_EQ(sum, 0);
  inners_[0].onCompleted();
  EXPECT_EQ(sum, count);
  outer_.onCompleted();
  EXPECT_TRUE(completed);
}

TEST(Combining, CombineLatestAndZipTakeTheirSourcesInAnyOrder) {
  const PublishSubject<int> a, b, c;
  const auto latest = watch(combineLatest(a.asObservable(), b.asObservable()));
  const auto pairs = watch(zip(a.asObservable(), b.asObservable()));
  const auto triples = watch(zip(a.asObservable(), b.asObservable(), c.asObservable()));
  c.onNext(7);
  a.onNext(1);
  a.onNext(2);
  b.onNext(3);
  b.onNext(4);
  a.onCompleted();
  EXPECT_EQ(pairs->lines, (Lines{"[1 3]", "[2 4]", "completed"}));
  c.onNext(8);
  EXPECT_EQ(triples->lines, (Lines{"[1 3 7]", "[2 4 8]", "completed"}));
  b.onNext(5);
  b.onCompleted();
  EXPECT_EQ(latest->lines, (Lines{"[2 3]", "[2 4]", "[2 5]", "completed"}));
  EXPECT_FALSE(c.hasObservers());
}

TEST(Combining, AnErrorEndsAllAndCancelsTheOthers) {
  const PublishSubject<int> a, b;
  const auto latest = watch(combineLatest(a.asObservable(), b.asObservable()));
  const auto pairs = watch(zip(a.asObservable(), b.asObservable()));
  const auto merged = watch(merge<int>({a.asObservable(), b.asObservable()}));
  a.onNext(1);
  b.onError(broken());
  EXPECT_EQ(latest->lines, (Lines{"error broken"}));
  EXPECT_EQ(pairs->lines, (Lines{"error broken"}));
  EXPECT_EQ(merged->lines, (Lines{"1", "error broken"}));
  EXPECT_FALSE(a.hasObservers());
  EXPECT_EQ(watch(merge<int>({}))->lines, (Lines{"completed"}));
}

TEST(Maybe, AnEmptyMaybeTakesItsReplacement) {
  int asked = 0;
  const auto other = create<int>([&](AnyObserver<int> observer) {
                       ++asked;
                       observer.onNext(8);
                       observer.onCompleted();
                       return Disposables::create();
                     }).asMaybe();
  const auto lines = [](const Maybe<int>& maybe) { return watch(maybe.asObservable())->lines; };
  EXPECT_EQ(lines(Maybe<int>::empty().ifEmpty(7)), (Lines{"7", "completed"}));
  EXPECT_EQ(lines(Maybe<int>::just(1).ifEmptySwitchTo(other)), (Lines{"1", "completed"}));
  EXPECT_EQ(lines(error<int>(broken()).asMaybe().ifEmptySwitchTo(other)), (Lines{"error broken"}));
  EXPECT_EQ(asked, 0);
  EXPECT_EQ(lines(Maybe<int>::empty().ifEmptySwitchTo(other)), (Lines{"8", "completed"}));
  EXPECT_EQ(lines(Maybe<int>::just(1).map([](int i) { return i + 1; }).flatMap([](int i) {
              return i == 2 ? Maybe<int>::empty() : Maybe<int>::just(i);
            })),
            (Lines{"completed"}));
}

}  // namespace
}  // namespace orrelo::test
