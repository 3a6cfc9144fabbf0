#pragma once

#include "platform/store/WriterQueue.h"

#include <orrelo/MainLoop.h>
#include <orrelo/Platform.h>
#include <orrelo/UserDefaults.h>
#include <orrelo/platform/Clock.h>
#include <orrelo/platform/DisplayLink.h>
#include <orrelo/platform/Random.h>
#include <orrelo/platform/URLSession.h>
#include <orrelo/platform/WorkerPool.h>

#include <algorithm>
#include <deque>
#include <filesystem>
#include <map>
#include <mutex>
#include <utility>
#include <vector>

namespace orrelo::test {

/// A clock that only the test advances.
class ManualClock final : public Clock {
 public:
  explicit ManualClock(Date now = Date::fromSeconds(1'700'000'000)) : now_(now) {}

  Date now() const override {
    return locked([this] { return now_; });
  }
  std::chrono::microseconds steady() const override {
    return locked([this] { return steady_; });
  }

  void advance(std::chrono::microseconds span) {
    locked([&] {
      steady_ += span;
      return now_ = now_ + span;
    });
  }
  void setNow(Date now) {
    locked([&] { return now_ = now; });
  }

 private:
  template <class F>
  std::invoke_result_t<F> locked(F f) const {
    const std::lock_guard lock(mutex_);
    return f();
  }

  mutable std::mutex mutex_;
  Date now_;
  std::chrono::microseconds steady_{0};
};

/// Counts 1, 2, …, so that identifiers are predictable.
class CountingRandom final : public Random {
 public:
  void fill(std::span<std::uint8_t> bytes) override {
    const std::lock_guard lock(mutex_);
    std::fill(bytes.begin(), bytes.end(), std::uint8_t{0});
    for (std::size_t i = 0; i < std::min<std::size_t>(8, bytes.size()); ++i) {
      bytes[bytes.size() - 1 - i] = static_cast<std::uint8_t>(count_ >> (8 * i));
    }
    ++count_;
  }

 private:
  std::mutex mutex_;
  std::uint64_t count_ = 1;
};

/// Main loop, worker pool and store thread in one: tasks run in due order on the thread that calls `run`, and
/// `clock` advances to each due time.
class ManualLoop final : public MainLoop, public WorkerPool, public SerialExecutor {
 public:
  using Task = std::function<void()>;

  explicit ManualLoop(std::shared_ptr<ManualClock> clock) : clock_(std::move(clock)) {}

  void post(Task task) override { postAfter({}, std::move(task)); }
  void postAfter(std::chrono::microseconds delay, Task task) override {
    const std::lock_guard lock(mutex_);
    tasks_.emplace(clock_->steady() + delay, std::move(task));
  }
  bool isCurrent() const override { return true; }
  void post(QualityOfService, Task task) override { post(std::move(task)); }
  void postAfter(QualityOfService, std::chrono::microseconds delay, Task task) override {
    postAfter(delay, std::move(task));
  }

  std::chrono::microseconds now() const { return clock_->steady(); }
  /// Runs the tasks that are due now, and those that they post for now.
  void run() { runFor({}); }
  /// Advances the clock by `span` and runs the tasks that become due.
  void runFor(std::chrono::microseconds span) {
    const auto until = clock_->steady() + span;
    while (auto next = takeDue(until)) {
      clock_->advance(std::max(next->first - clock_->steady(), std::chrono::microseconds(0)));
      next->second();
    }
    clock_->advance(until - clock_->steady());
  }
  std::size_t pending() const {
    const std::lock_guard lock(mutex_);
    return tasks_.size();
  }

 private:
  std::optional<std::pair<std::chrono::microseconds, Task>> takeDue(std::chrono::microseconds until) {
    const std::lock_guard lock(mutex_);
    if (tasks_.empty() || tasks_.begin()->first > until) return std::nullopt;
    auto node = tasks_.extract(tasks_.begin());
    return std::pair(node.key(), std::move(node.mapped()));
  }

  std::shared_ptr<ManualClock> clock_;
  mutable std::mutex mutex_;
  std::multimap<std::chrono::microseconds, Task> tasks_;
};

/// A network that answers requests with the results given to `lay`, in order. A request without a result
/// waits for `answer`.
class ScriptedURLSession final : public URLSession {
 public:
  std::shared_ptr<URLSessionTask> dataTask(URLRequest request, Completion completion) override {
    return std::make_shared<Task>(*this, std::move(request), std::move(completion));
  }
  std::shared_ptr<URLSessionTask> streamingTask(URLRequest request,
                                                std::shared_ptr<URLSessionDataDelegate> delegate) override {
    return dataTask(std::move(request), [delegate](const URLSessionResult& result) {
      const std::string bytes = result.data.value_or("");
      for (std::size_t i = 0; i < bytes.size(); i += chunkSize) delegate->onData(bytes.substr(i, chunkSize));
      delegate->onCompletion(result.error);
    });
  }
  void trust(std::string_view origin, const std::string& file) override {
    trusted[std::string(origin)] = file;
  }

  static URLSessionResult reply(int status, std::string body = "") {
    return {std::nullopt, std::move(body), HTTPURLResponse{status, {}}};
  }
  static URLSessionResult failure(URLError error) { return {makeError(error), {}, {}}; }

  void lay(URLSessionResult result) { laid.push_back(std::move(result)); }
  /// Answers the oldest waiting request.
  void answer(URLSessionResult result) {
    auto completion = std::move(waiting.front());
    waiting.pop_front();
    completion(std::move(result));
  }
  /// The requests whose path ends with `pathSuffix`.
  std::vector<URLRequest> requestsTo(std::string_view pathSuffix) const {
    std::vector<URLRequest> found;
    std::copy_if(requests.begin(), requests.end(), std::back_inserter(found),
                 [&](const auto& request) { return request.url.path().ends_with(pathSuffix); });
    return found;
  }

  std::vector<URLRequest> requests;
  std::deque<URLSessionResult> laid;
  /// Answers requests first; one that it returns nothing for takes a laid result or waits.
  std::function<std::optional<URLSessionResult>(const URLRequest&)> responder;
  std::deque<Completion> waiting;
  /// The number of requests cancelled while they waited.
  int cancelled = 0;
  std::map<std::string, std::string> trusted;
  /// The size of the pieces of a streamed reply, in bytes.
  static constexpr std::size_t chunkSize = 1000;

 private:
  class Task final : public URLSessionTask {
   public:
    Task(ScriptedURLSession& session, URLRequest request, Completion completion)
        : session_(session), request_(std::move(request)), completion_(std::move(completion)) {}

    void resume() override {
      session_.requests.push_back(request_);
      auto completion = std::move(completion_);
      std::optional<URLSessionResult> result;
      if (session_.responder) result = session_.responder(request_);
      if (!result && !session_.laid.empty()) {
        result = std::move(session_.laid.front());
        session_.laid.pop_front();
      }
      if (result) return completion(*std::move(result));
      session_.waiting.push_back(
          [isAnswered = isAnswered_, completion = std::move(completion)](URLSessionResult late) {
            *isAnswered = true;
            completion(std::move(late));
          });
      *isAnswered_ = false;
    }
    void cancel() override {
      if (!*isAnswered_) ++session_.cancelled;
    }

   private:
    ScriptedURLSession& session_;
    URLRequest request_;
    Completion completion_;
    std::shared_ptr<bool> isAnswered_ = std::make_shared<bool>(true);
  };
};

/// A display that ticks only when the test calls `tick`.
class ManualDisplayLink final : public DisplayLink {
 public:
  int ticksPerSecond() const override { return rate; }
  Registration start(Tick tick) override {
    auto registration = std::make_shared<const Tick>(std::move(tick));
    running_.push_back(registration);
    return registration;
  }

  /// Calls every living registration, `count` times.
  void tick(int count = 1) {
    for (int i = 0; i < count; ++i) {
      eraseDead();
      const auto running = running_;
      for (const auto& weak : running) {
        if (const auto registration = weak.lock()) (*registration)();
      }
    }
  }
  /// The number of registrations that are alive.
  std::size_t runningCount() {
    eraseDead();
    return running_.size();
  }

  int rate = 60;

 private:
  void eraseDead() {
    std::erase_if(running_, [](const auto& weak) { return weak.expired(); });
  }

  std::vector<std::weak_ptr<const Tick>> running_;
};

class MemoryDefaults final : public UserDefaults {
 public:
  std::optional<DefaultsValue> value(std::string_view key) const override {
    const std::lock_guard lock(mutex_);
    const auto found = values_.find(key);
    return found == values_.end() ? std::nullopt : std::optional(found->second);
  }
  void set(std::string_view key, DefaultsValue value) override {
    const std::lock_guard lock(mutex_);
    values_.insert_or_assign(std::string(key), std::move(value));
  }
  void remove(std::string_view key) override {
    const std::lock_guard lock(mutex_);
    values_.erase(std::string(key));
  }

 private:
  mutable std::mutex mutex_;
  std::map<std::string, DefaultsValue, std::less<>> values_;
};

class MemoryDefaultsFactory final : public UserDefaultsFactory {
 public:
  std::shared_ptr<UserDefaults> standard() override { return suite("(standard)"); }
  std::shared_ptr<UserDefaults> suite(std::string_view name) override {
    if (name == refusedName) return nullptr;
    const std::lock_guard lock(mutex_);
    auto& suite = suites_[std::string(name)];
    if (!suite) suite = std::make_shared<MemoryDefaults>();
    return suite;
  }

  static constexpr std::string_view refusedName = "NSGlobalDomain";

 private:
  std::mutex mutex_;
  std::map<std::string, std::shared_ptr<UserDefaults>> suites_;
};

class FixedBundle final : public Bundle {
 public:
  explicit FixedBundle(std::optional<std::map<std::string, std::string>> entries)
      : entries_(std::move(entries)) {}

  bool hasInfoDictionary() const override { return entries_.has_value(); }
  std::optional<std::string> info(std::string_view key) const override {
    if (!entries_) return std::nullopt;
    const auto found = entries_->find(std::string(key));
    return found == entries_->end() ? std::nullopt : std::optional(found->second);
  }

 private:
  std::optional<std::map<std::string, std::string>> entries_;
};

/// Uses one folder for data and caches.
class FolderDirectories final : public Directories {
 public:
  explicit FolderDirectories(std::filesystem::path folder) : folder_(std::move(folder)) {}

  std::filesystem::path data() const override { return folder_; }
  std::filesystem::path cache() const override { return folder_; }

 private:
  std::filesystem::path folder_;
};

class FixedDevice final : public Device {
 public:
  std::string systemVersion() const override { return "12"; }
  std::string localeIdentifier() const override { return locale; }
  std::string timeZoneIdentifier() const override { return "Asia/Seoul"; }

  std::string locale = "ko_KR";
};

}  // namespace orrelo::test
