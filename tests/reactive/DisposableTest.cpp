// Disposables, dispose bags, subscribers and subjects.

#include "reactive/Subjects.h"
#include "support/Probe.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace orrelo::test {
namespace {

using namespace reactive;

TEST(DisposeBag, DisposesWhenItGoesAndAtOnceAfterItWasDisposedOf) {
  int disposed = 0;
  const auto counting = [&] { return Disposables::create([&] { ++disposed; }); };
  {
    DisposeBag bag;
    counting().disposedBy(bag);
    counting().disposedBy(bag);
    EXPECT_EQ(disposed, 0);
  }
  EXPECT_EQ(disposed, 2);

  DisposeBag bag;
  bag.dispose();
  const auto late = counting();
  late.disposedBy(bag);
  EXPECT_EQ(disposed, 3);
  late.dispose();
  EXPECT_EQ(disposed, 3);
}

TEST(DisposeBag, AHandlerMayTouchTheBagThatGoes) {
  std::optional<DisposeBag> bag(std::in_place);
  bool innerDisposed = false;
  Disposables::create([&] {
    bag->dispose();
    Disposables::create([&] { innerDisposed = true; }).disposedBy(*bag);
  }).disposedBy(*bag);
  bag.reset();
  EXPECT_TRUE(innerDisposed);
}

TEST(DisposeBag, ForgetsStreamsThatHaveEnded) {
  DisposeBag bag;
  const PublishSubject<int> endless;
  endless.asObservable().subscribe().disposedBy(bag);
  const auto flaky = create<int>([](AnyObserver<int> observer) {
    observer.onError(broken());
    return Disposables::create();
  });
  for (int i = 0; i < 1000; ++i) {
    just(i).subscribe().disposedBy(bag);
    flaky.retry(2).subscribe().disposedBy(bag);
  }
  EXPECT_LE(bag.size(), 32u);
  EXPECT_TRUE(endless.hasObservers());
  bag.dispose();
  EXPECT_FALSE(endless.hasObservers());
}

TEST(Subscriber, CallsItsHandlersOnceCancelsAndThenSaysThatItIsDisposed) {
  for (const bool fails : {false, true}) {
    Lines lines;
    const auto source = create<int>([&](AnyObserver<int> observer) {
      observer.onNext(1);
      fails ? observer.onError(broken()) : observer.onCompleted();
      return Disposables::create([&] { lines.push_back("cancelled"); });
    });
    const auto handle =
        source.subscribe({.onNext = [&](int i) { lines.push_back(text(i)); },
                          .onError = [&](const Error& error) { lines.push_back(text(error)); },
                          .onCompleted = [&] { lines.push_back("completed"); },
                          .onDisposed = [&] { lines.push_back("disposed"); }});
    EXPECT_TRUE(handle.isDisposed());
    handle.dispose();
    EXPECT_EQ(lines, (Lines{"1", fails ? "error broken" : "completed", "disposed", "cancelled"}));
  }
}

TEST(Subscriber, ExceptionsOfHandlersStayInTheChain) {
  const PublishSubject<int> subject;
  Lines lines;
  bool cancelled = false;
  const auto source = create<int>([&](AnyObserver<int> observer) {
    subject.asObservable().subscribe([observer](int i) { observer.onNext(i); });
    return Disposables::create([&] { cancelled = true; });
  });
  source.subscribe({.onNext = [](int) { throw broken(); },
                    .onError =
                        [&](const Error& error) {
                          lines.push_back(text(error));
                          throw std::runtime_error("in onError");
                        },
                    .onDisposed =
                        [&] {
                          lines.push_back("disposed");
                          throw std::runtime_error("in onDisposed");
                        }});
  const auto other = watch(subject.asObservable());
  EXPECT_NO_THROW(subject.onNext(1));
  EXPECT_NO_THROW(subject.onNext(2));
  EXPECT_TRUE(cancelled);
  EXPECT_EQ(lines, (Lines{"error broken", "disposed"}));
  EXPECT_EQ(other->lines, (Lines{"1", "2"}));

  EXPECT_NO_THROW(just(1).subscribe({.onCompleted = [] { throw broken(); }}));
  EXPECT_NO_THROW(error<int>(broken()).subscribe());
}

TEST(PublishSubject, GivesOnlyWhatComesAfterAndAfterTheEndTheEndAlone) {
  const PublishSubject<int> subject;
  subject.onNext(1);
  const auto early = watch(subject.asObservable());
  subject.onNext(2);
  subject.onError(broken());
  subject.onNext(3);
  subject.onCompleted();
  EXPECT_EQ(early->lines, (Lines{"2", "error broken"}));
  EXPECT_EQ(watch(subject.asObservable())->lines, (Lines{"error broken"}));
}

TEST(PublishSubject, ObserversComeAndGoWhileItEmits) {
  const PublishSubject<int> subject;
  const auto first = watch(subject.asObservable());
  const auto second = watch(subject.asObservable());
  NotesPtr third;
  first->onElement = [&] {
    second->handle.dispose();
    if (!third) third = watch(subject.asObservable());
  };
  subject.onNext(1);
  subject.onNext(2);
  EXPECT_EQ(first->lines, (Lines{"1", "2"}));
  EXPECT_THAT(second->lines, testing::IsEmpty());
  EXPECT_EQ(third->lines, (Lines{"2"}));
}

TEST(BehaviorSubject, ReplaysTheLastElementAndKeepsOrderWhenAnObserverEmits) {
  const BehaviorSubject<int> subject(1);
  subject.onNext(2);
  const auto notes = std::make_shared<Notes>();
  notes->onElement = [&] {
    if (subject.value() < 5) subject.onNext(subject.value() + 1);
  };
  watch(subject.asObservable(), notes);
  EXPECT_EQ(notes->lines, (Lines{"2", "3", "4", "5"}));
  EXPECT_EQ(watch(subject.asObservable())->lines, (Lines{"5"}));
  subject.onCompleted();
  subject.onNext(6);
  EXPECT_EQ(subject.value(), 5);
  EXPECT_EQ(watch(subject.asObservable())->lines, (Lines{"completed"}));
}

TEST(BehaviorSubject, AnElementThatGoesMayTouchIt) {
  using Value = std::shared_ptr<void>;
  std::optional<BehaviorSubject<Value>> subject(std::in_place, nullptr);
  bool touched = false;
  subject->onNext(Value(nullptr, [&](void*) { touched = subject->value() == nullptr; }));
  subject->onNext(nullptr);
  EXPECT_TRUE(touched);
}

}  // namespace
}  // namespace orrelo::test
