// The guarantees that hold for every operator.

#include "EveryOperator.h"
#include "reactive/Subjects.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace orrelo::test {
namespace {

using namespace reactive;
using std::chrono::seconds;

bool isEnd(const std::string& line) {
  return line == "completed" || line.starts_with("error");
}

/// A hot source that sends after its end and keeps its observers.
class RudeSource final : public Source<int> {
 public:
  void subscribe(ObserverPtr<int> observer, const StartOn&) const override {
    observers.push_back(observer);
    observer->onSubscribe(Disposables::create([] {}));
  }
  void send(const Event<int>& event) const {
    for (const auto& observer : std::vector(observers)) observer->on(event);
  }
  mutable std::vector<ObserverPtr<int>> observers;
};

class StreamLaws : public testing::TestWithParam<OperatorCase> {
 protected:
  ~StreamLaws() override { setting_.scheduler->dropPending(); }

  void start(const Observable<int>& source) { GetParam().chain(source, setting_)(notes_); }
  /// Returns a pointer to an object that the operator's callback and the end of the chain own.
  std::weak_ptr<int> startWithSentinel(const Observable<int>& source) {
    notes_ = std::make_shared<Notes>();
    notes_->disposesAtOnce = disposesAtOnce_;
    notes_->sentinel = std::make_shared<int>();
    const std::weak_ptr<int> held = notes_->sentinel;
    setting_.callback = [sentinel = notes_->sentinel] {};
    start(source);
    setting_.callback = [] {};
    return held;
  }
  void letTimePass() { setting_.scheduler->advanceBy(seconds(10)); }
  bool deliversLater() const { return GetParam().name == "observeOn" || GetParam().name == "eventPipeline"; }

  Setting setting_;
  bool disposesAtOnce_ = false;
  NotesPtr notes_ = std::make_shared<Notes>();
};

TEST_P(StreamLaws, ElementsAndEndsPassAsTheOperatorSays) {
  const PublishSubject<int> completing;
  start(completing.asObservable());
  for (int i = 1; i <= 3; ++i) completing.onNext(i);
  completing.onCompleted();
  letTimePass();
  EXPECT_EQ(notes_->lines, GetParam().afterCompletion);
  EXPECT_TRUE(notes_->handle.isDisposed());

  const PublishSubject<int> failing;
  notes_ = std::make_shared<Notes>();
  start(failing.asObservable());
  failing.onNext(1);
  setting_.scheduler->runDue();
  failing.onError(broken());
  letTimePass();
  EXPECT_EQ(notes_->lines, GetParam().afterError);
  EXPECT_TRUE(notes_->handle.isDisposed());
}

// A cold source starts on the scheduler; a hot one is subscribed to at once.
TEST_P(StreamLaws, NothingSentAfterSubscribeReturnedIsLost) {
  const BehaviorSubject<int> subject(1);
  start(subject.asObservable().subscribeOn(setting_.scheduler));
  subject.onNext(2);
  subject.onNext(3);
  subject.onCompleted();
  letTimePass();
  EXPECT_EQ(notes_->lines, GetParam().afterCompletion);
}

TEST_P(StreamLaws, EachSubscriptionRunsAnew) {
  const auto startAgain = GetParam().chain(upTo(3).subscribeOn(setting_.scheduler), setting_);
  for (int round = 0; round < 2; ++round) {
    notes_ = std::make_shared<Notes>();
    startAgain(notes_);
    EXPECT_THAT(notes_->lines, testing::IsEmpty()) << "the cold source did not wait for its scheduler";
    letTimePass();
    EXPECT_EQ(notes_->lines, GetParam().afterCompletion);
  }
}

TEST_P(StreamLaws, NothingFollowsTheEnd) {
  if (GetParam().name == "subscribeOn") GTEST_SKIP() << "subscribeOn passes notifications on unchecked";
  const auto completed = Event<int>::completed();
  const auto failure = Event<int>::failure(broken());
  for (const auto& end : {completed, failure}) {
    const auto source = std::make_shared<RudeSource>();
    notes_ = std::make_shared<Notes>();
    start(Observable<int>(source));
    const auto next = [](int i) { return Event<int>::next(i); };
    for (const auto& event : {next(1), end, next(2), failure, completed, next(3)}) {
      source->send(event);
      setting_.scheduler->runDue();
    }
    letTimePass();
    EXPECT_EQ(std::ranges::find_if(notes_->lines, isEnd), notes_->lines.end() - 1)
        << testing::PrintToString(notes_->lines);
  }
}

TEST_P(StreamLaws, ACancelledSourceEmitsNoMore) {
  int sent = 0;
  int cancelled = 0;
  notes_->onElement = [this] { notes_->handle.dispose(); };
  start(create<int>([&](AnyObserver<int> observer) {
    while (!observer.isDisposed() && sent < 1000) observer.onNext(++sent);
    return Disposables::create([&cancelled] { ++cancelled; });
  }));
  letTimePass();
  notes_->onElement = nullptr;
  EXPECT_EQ(notes_->lines.size(), 1u);
  EXPECT_LE(sent, deliversLater() ? 1000 : 2);
  EXPECT_EQ(cancelled, 1);
}

TEST_P(StreamLaws, ACancellationBeforeTheStartIsFollowedByNothing) {
  bool ran = false;
  const PublishSubject<int> subject;
  const auto cold = create<int>([&](AnyObserver<int>) {
    ran = true;
    return Disposables::create();
  });
  disposesAtOnce_ = true;
  for (const auto& source : {cold, subject.asObservable()}) {
    const auto held = startWithSentinel(source);
    subject.onNext(1);
    EXPECT_TRUE(held.expired());
    letTimePass();
    EXPECT_TRUE(notes_->lines.empty());
  }
  EXPECT_FALSE(ran);
}

TEST_P(StreamLaws, NothingIsHeldAfterTheEndAndAfterDisposal) {
  const std::vector<std::function<void(const PublishSubject<int>&)>> goings = {
      [](const PublishSubject<int>& source) { source.onCompleted(); },
      [](const PublishSubject<int>& source) { source.onError(broken()); },
      [this](const PublishSubject<int>&) { notes_->handle.dispose(); }};
  for (const auto& go : goings) {
    const PublishSubject<int> source;
    const auto held = startWithSentinel(source.asObservable());
    source.onNext(1);
    letTimePass();
    source.onNext(2);
    EXPECT_FALSE(held.expired() && notes_->lines.empty());
    go(source);
    if (!notes_->handle.isDisposed())
      letTimePass();  // an end may be delivered later, a disposal takes effect at once
    EXPECT_TRUE(held.expired());
  }
}

INSTANTIATE_TEST_SUITE_P(Every, StreamLaws, testing::ValuesIn(everyOperator()),
                         [](const auto& tested) { return tested.param.name; });

class CallbackLaws : public StreamLaws {};

TEST_P(CallbackLaws, AnExceptionOfACallbackEndsTheStreamAndCancelsTheSource) {
  const PublishSubject<int> subject;
  setting_.callback = [] { throw broken(); };
  start(subject.asObservable());
  subject.onNext(1);
  subject.onNext(2);
  letTimePass();
  EXPECT_EQ(notes_->lines.back(), "error broken");
  EXPECT_EQ(notes_->lines.size(), 1u);
  // The pipeline's retry subscribes a second time and fails a second time.
  subject.onNext(3);
  subject.onNext(4);
  letTimePass();
  EXPECT_FALSE(subject.hasObservers());
  EXPECT_EQ(notes_->lines.size(), 1u);
}

TEST_P(CallbackLaws, ACallbackMayDisposeOfItsOwnStream) {
  const PublishSubject<int> subject;
  setting_.callback = [this] { notes_->handle.dispose(); };
  const auto sentinel = std::make_shared<int>();
  notes_->sentinel = sentinel;
  start(subject.asObservable());
  subject.onNext(1);
  subject.onNext(2);
  letTimePass();
  EXPECT_FALSE(subject.hasObservers());
  EXPECT_EQ(sentinel.use_count(), 1);
}

INSTANTIATE_TEST_SUITE_P(Every, CallbackLaws, testing::ValuesIn(operatorsWithCallbacks()),
                         [](const auto& tested) { return tested.param.name; });

}  // namespace
}  // namespace orrelo::test
