#include "Benches.h"
#include "Targets.h"
#include "reactive/Observable.h"
#include "reactive/Subjects.h"

#include <benchmark/benchmark.h>

namespace orrelo::bench {

void addChain() {
  add({{"chain of three operators", "ns", 100}}, [] {
    const reactive::PublishSubject<int> source;
    long sum = 0;
    const auto subscription = source.asObservable()
                                  .map([](int element) { return element + 1; })
                                  .filter([](int element) { return element % 7 != 0; })
                                  .map([](int element) { return 2L * element; })
                                  .subscribe([&sum](long element) { sum += element; });
    constexpr int count = 5'000'000;
    const auto start = std::chrono::steady_clock::now();
    for (int i = 0; i < count; ++i) source.onNext(i);
    const double elapsed = secondsSince(start);
    benchmark::DoNotOptimize(sum);
    subscription.dispose();
    return std::vector{elapsed * 1e9 / count};
  });
}

}  // namespace orrelo::bench
