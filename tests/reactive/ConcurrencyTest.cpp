// Several threads at once; the thread sanitizer runs these tests too.

#include "reactive/Combining.h"
#include "support/IntStreams.h"
#include "support/PoolScheduler.h"

#include <barrier>
#include <future>
#include <gtest/gtest.h>
#include <thread>

namespace orrelo::test {
namespace {

using namespace reactive;
using std::chrono::milliseconds;

/// Runs `work(index)` on `count` threads that begin together, and waits for them.
void together(int count, const std::function<void(int)>& work) {
  std::barrier start(count);
  std::vector<std::jthread> threads;
  for (int i = 0; i < count; ++i) {
    threads.emplace_back([&, i] {
      start.arrive_and_wait();
      work(i);
    });
  }
}

/// Fails when two calls overlap.
class Alone {
 public:
  template <class F>
  void run(F f) {
    EXPECT_FALSE(busy_.exchange(true)) << "two notifications at once";
    f();
    busy_ = false;
  }

 private:
  std::atomic<bool> busy_ = false;
};

TEST(Concurrency, ObserveOnDeliversOneAtATimeInOrderAndLosesNothing) {
  constexpr int emitters = 8, each = 2000;
  const auto pool = std::make_shared<PoolScheduler>();
  const PublishSubject<std::pair<int, int>> subject;
  Alone alone;
  std::vector<int> last(emitters, -1);
  std::promise<void> completed;
  subject.asObservable()
      .observeOn(pool)
      .map([](const auto& element) { return element; })
      .subscribe({.onNext =
                      [&](const std::pair<int, int>& element) {
                        alone.run([&] {
                          auto& before = last[static_cast<std::size_t>(element.first)];
                          EXPECT_EQ(element.second, before + 1);
                          before = element.second;
                        });
                      },
                  .onCompleted = [&] { completed.set_value(); }});
  together(emitters, [&](int emitter) {
    for (int i = 0; i < each; ++i) subject.onNext({emitter, i});
  });
  subject.onCompleted();
  completed.get_future().wait();
  pool->stop();
  EXPECT_EQ(last, std::vector<int>(emitters, each - 1));
}

// The event pipelines' chain: signals are buffered and then handled one batch at a time on other threads,
// while the owner is destroyed.
TEST(Concurrency, APipelineIsDisposedOfWhileEightThreadsEmit) {
  for (int round = 0; round < 20; ++round) {
    const auto pool = std::make_shared<PoolScheduler>();
    const PublishSubject<Unit> subject;
    Alone alone;
    std::promise<void> underWay;
    std::atomic<int> batches = 0;
    const auto sentinel = std::make_shared<int>();
    auto bag = std::make_unique<DisposeBag>();
    subject.asObservable()
        .buffer(milliseconds(1), 16, pool)
        .observeOn(pool)
        .concatMap([&, sentinel, pool](const std::vector<Unit>& batch) {
          return just(batch).subscribeOn(pool).observeOn(pool);
        })
        .subscribe([&, sentinel](const std::vector<Unit>&) {
          alone.run([&] {
            if (++batches == 5) underWay.set_value();
          });
        })
        .disposedBy(*bag);
    together(9, [&](int index) {
      if (index == 8) {
        underWay.get_future().wait();
        bag.reset();
      } else {
        for (int i = 0; i < 500; ++i) subject.onNext({});
      }
    });
    pool->stop();
    EXPECT_FALSE(subject.hasObservers());
    EXPECT_EQ(sentinel.use_count(), 1);
  }
}

TEST(Concurrency, AnEndlessEmitterStopsWhenTheOtherSideOfObserveOnDisposes) {
  const auto pool = std::make_shared<PoolScheduler>();
  std::promise<void> disposed;
  create<int>([](AnyObserver<int> observer) {
    while (!observer.isDisposed()) observer.onNext(1);
    return Disposables::create();
  })
      .subscribeOn(pool)
      .observeOn(pool)
      .subscribe({.onNext = [](int) { throw Error("Test", "enough"); },
                  .onDisposed = [&] { disposed.set_value(); }});
  disposed.get_future().wait();
  pool->stop();  // returns only when the emitter has stopped
}

TEST(Concurrency, ASubscriberOfABehaviorSubjectMissesNoLaterValue) {
  constexpr int lastValue = 20'000;
  const BehaviorSubject<int> subject(0);
  std::atomic<bool> over = false;
  together(4, [&](int index) {
    if (index == 0) {
      for (int i = 1; i <= lastValue; ++i) subject.onNext(i);
      over = true;
      return;
    }
    while (!over) {
      const auto handle = subject.asObservable().subscribe([former = -1](int value) mutable {
        EXPECT_TRUE(former == -1 || value == former + 1) << former << " before " << value;
        former = value;
      });
      subject.asObservable().subscribe([](int) { throw Error("Test", "gone at once"); });
      handle.dispose();
    }
  });
  EXPECT_EQ(subject.value(), lastValue);
}

TEST(Concurrency, BehaviorSubjectGivesAllSubscribersTheSameOrder) {
  const BehaviorSubject<int> subject(-1);
  std::vector<std::vector<int>> heard(3);
  for (auto& mine : heard) subject.asObservable().subscribe([&](int value) { mine.push_back(value); });
  together(4, [&](int index) {
    for (int i = 0; i < 2000; ++i) subject.onNext(index * 2000 + i);
  });
  EXPECT_EQ(heard[0].size(), 8001u);
  EXPECT_EQ(heard[0], heard[1]);
  EXPECT_EQ(heard[0], heard[2]);
  EXPECT_EQ(heard[0].back(), subject.value());
}

TEST(Concurrency, FlatMapLatestGivesNothingOfAFormerStreamAfterTheNext) {
  for (int round = 0; round < 20; ++round) {
    const PublishSubject<int> outer;
    const PublishSubject<Unit> ticks;
    int newest = 0;
    outer.asObservable()
        .flatMapLatest([&](int i) {
          return merge<int>({just(i), ticks.asObservable().map([i](Unit) { return i; })});
        })
        .subscribe([&](int i) {
          EXPECT_GE(i, newest);
          newest = i;
        });
    together(3, [&](int index) {
      for (int i = 1; i <= 500; ++i) {
        if (index == 0) {
          outer.onNext(i);
        } else {
          ticks.onNext({});
        }
      }
    });
    EXPECT_EQ(newest, 500);
  }
}

TEST(Concurrency, AGateThatIsClosedLetsItsObserverGo) {
  class Sink final : public Observer<int> {
   public:
    explicit Sink(std::shared_ptr<int> sentinel) : sentinel_(std::move(sentinel)) {}
    void onSubscribe(Disposable) override {}
    void onNext(const int&) override {
      alone_.run([this] { ++*sentinel_; });
    }
    void onError(const Error&) override {}
    void onCompleted() override {}

   private:
    Alone alone_;
    std::shared_ptr<int> sentinel_;
  };
  for (int round = 0; round < 300; ++round) {
    const auto sentinel = std::make_shared<int>();
    SerialGate<int> gate(std::make_shared<Sink>(sentinel));
    together(4, [&](int index) {
      for (int i = 0; i < 50; ++i) index == 3 && i == 25 ? gate.close() : gate.onNext(i);
    });
    EXPECT_EQ(sentinel.use_count(), 1);
  }
}

TEST(Concurrency, SourcesThatAreCombinedEndOnce) {
  for (int round = 0; round < 200; ++round) {
    std::vector<PublishSubject<int>> sources(3);
    Alone alone;
    int merged = 0, triples = 0, ends = 0;
    const auto combine = [&](const auto& stream, auto onNext) {
      stream.subscribe({.onNext = [&, onNext](const auto&) { alone.run(onNext); },
                        .onCompleted = [&] { alone.run([&] { ++ends; }); }});
    };
    const auto source = [&](std::size_t i) { return sources[i].asObservable(); };
    const bool isMerge = round % 2 == 0;
    if (isMerge) {
      combine(merge<int>({source(0), source(1), source(2)}), [&] { ++merged; });
    } else {
      combine(zip(source(0), source(1), source(2)), [&] { ++triples; });
    }
    together(3, [&](int index) {
      const auto& mine = sources[static_cast<std::size_t>(index)];
      for (int i = 0; i < 50; ++i) mine.onNext(i);
      mine.onCompleted();
    });
    EXPECT_EQ(ends, 1);
    EXPECT_EQ(isMerge ? merged : triples, isMerge ? 150 : 50);
  }
}

}  // namespace
}  // namespace orrelo::test
