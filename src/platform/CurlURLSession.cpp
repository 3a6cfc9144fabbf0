#include "platform/CurlURLSession.h"

#include "platform/CurlTransfer.h"
#include "platform/KitThread.h"

#include <algorithm>
#include <cstdlib>
#include <curl/curl.h>
#include <deque>
#include <map>
#include <mutex>
#include <openssl/crypto.h>
#include <thread>
#include <utility>
#include <vector>

namespace orrelo {
namespace {

// The others wait here and not in curl, whose own queue (CURLMOPT_MAX_HOST_CONNECTIONS, in 7.88) can forget
// its last ones: one that finds no connection free is not always woken by the next that becomes free.
constexpr std::ptrdiff_t maximumRunningPerOrigin = 6;

// Held while the thread is inside curl. The end of the process takes it for good, so that no transfer runs
// while other libraries' exit handlers tear down what it uses.
std::mutex& curlTurn() {
  static auto* const turn = new std::mutex;
  return *turn;
}

void initializeCurl() {
  static const bool initialized = [] {
    OPENSSL_init_crypto(OPENSSL_INIT_NO_ATEXIT, nullptr);
    curl_global_init(CURL_GLOBAL_DEFAULT);
    isExiting();  // from here on it is known
    std::atexit([] { curlTurn().lock(); });
    return true;
  }();
  static_cast<void>(initialized);
}

// What the session and its thread share.
class Engine {
 public:
  Engine() {
    initializeCurl();
    multi_ = curl_multi_init();
  }

  ~Engine() {
    if (multi_ != nullptr) curl_multi_cleanup(multi_);
  }

  void start(std::shared_ptr<CurlTransfer> transfer) {
    {
      const std::lock_guard lock(mutex_);
      if (stopping_) return;
      transfer->startClock();
      starting_.push_back(std::move(transfer));
    }
    curl_multi_wakeup(multi_);
  }

  /// The transfer's completion will not run any more; what it takes is given back.
  void drop(std::shared_ptr<CurlTransfer> transfer) {
    {
      const std::lock_guard lock(mutex_);
      if (stopping_) return;
      dropped_.push_back(std::move(transfer));
    }
    curl_multi_wakeup(multi_);
  }

  void stop() {
    const std::lock_guard lock(mutex_);  // the thread must not see it, and clean up, before it is woken
    stopping_ = true;
    curl_multi_wakeup(multi_);
  }

  void trust(TrustedOrigin trusted) {
    const std::lock_guard lock(mutex_);
    std::erase_if(trusted_, [&](const auto& known) { return known.origin == trusted.origin; });
    trusted_.push_back(std::move(trusted));
  }

  void run() {
    while (true) {
      {
        const std::lock_guard turn(curlTurn());
        forgetDropped();
        startNew();
        int count = 0;
        curl_multi_perform(multi_, &count);
      }
      deliverChunks();
      const bool madeRoom = finishDone();
      const auto wait = failLate();
      {
        const std::lock_guard lock(mutex_);
        if (stopping_) break;
        if (madeRoom || !dropped_.empty() || !starting_.empty()) continue;
      }
      curl_multi_poll(multi_, nullptr, 0, wait, nullptr);
    }
    closeConnections();
  }

 private:
  struct Running {
    std::shared_ptr<CurlTransfer> transfer;
    std::string origin;
  };

  // On the network's thread: what is written to a connection that its server has left raises SIGPIPE, which
  // this thread alone takes no notice of.
  void closeConnections() {
    std::map<CURL*, Running> left;  // their completions are let go outside the turn
    const std::lock_guard turn(curlTurn());
    std::swap(left, running_);
    for (const auto& [easy, running] : left) curl_multi_remove_handle(multi_, easy);
    curl_multi_cleanup(std::exchange(multi_, nullptr));
  }

  void startNew() {
    std::vector<std::shared_ptr<CurlTransfer>> starting;
    {
      const std::lock_guard lock(mutex_);
      std::swap(starting, starting_);
    }
    for (auto& transfer : starting) waiting_[originOf(transfer->url())].push_back(std::move(transfer));
    for (auto& [origin, queue] : waiting_) startFrom(queue, origin);
    std::erase_if(waiting_, [](const auto& entry) { return entry.second.empty(); });
  }

  void startFrom(std::deque<std::shared_ptr<CurlTransfer>>& queue, const std::string& origin) {
    auto room = maximumRunningPerOrigin -
                std::count_if(running_.begin(), running_.end(),
                              [&](const auto& entry) { return entry.second.origin == origin; });
    for (; room > 0 && !queue.empty(); queue.pop_front()) {
      if (!queue.front()->isOver() && startHop(queue.front(), origin)) --room;
    }
  }

  bool startHop(const std::shared_ptr<CurlTransfer>& transfer, const std::string& origin) {
    CURL* const easy = transfer->prepare(trustedFor(origin));
    if (easy == nullptr || curl_multi_add_handle(multi_, easy) != CURLM_OK) {
      transfer->fail(makeError(URLError::unknown, "There is no memory for the request"));
      return false;
    }
    running_[easy] = {transfer, origin};
    return true;
  }

  void forgetDropped() {
    std::vector<std::shared_ptr<CurlTransfer>> dropped;
    {
      const std::lock_guard lock(mutex_);
      std::swap(dropped, dropped_);
    }
    for (const auto& transfer : dropped) forget(transfer);
  }

  // Says whether others may start now.
  bool finishDone() {
    for (bool madeRoom = false;; madeRoom = true) {
      std::shared_ptr<CurlTransfer> transfer;
      CURLcode code = CURLE_OK;
      {
        const std::lock_guard turn(curlTurn());
        int left = 0;
        const CURLMsg* const message = curl_multi_info_read(multi_, &left);
        if (message == nullptr) return madeRoom;
        if (message->msg != CURLMSG_DONE) continue;
        code = message->data.result;
        transfer = running_.extract(message->easy_handle).mapped().transfer;
        curl_multi_remove_handle(multi_, transfer->handle());
      }
      bool goesOn = false;
      runGuarded([&] { goesOn = transfer->finishHop(code); });
      if (goesOn) waiting_[originOf(transfer->url())].push_front(std::move(transfer));
    }
  }

  void deliverChunks() {
    for (const auto& entry : running_) runGuarded([&] { entry.second.transfer->deliver(); });
  }

  // Says after how many milliseconds to look again.
  int failLate() {
    using std::chrono::milliseconds;
    const auto now = std::chrono::steady_clock::now();
    milliseconds next{60'000};
    std::vector<std::shared_ptr<CurlTransfer>> late;
    const auto look = [&](const auto& transfer, const auto& deadline) {
      if (!deadline) return;
      if (*deadline <= now) late.push_back(transfer);
      next = std::min(next, std::max(milliseconds{0}, std::chrono::ceil<milliseconds>(*deadline - now)));
    };
    for (const auto& [easy, running] : running_) look(running.transfer, running.transfer->idleDeadline());
    for (const auto& [origin, queue] : waiting_) {
      for (const auto& transfer : queue) look(transfer, transfer->waitingDeadline());
    }
    for (const auto& transfer : late) {
      {
        const std::lock_guard turn(curlTurn());
        forget(transfer);
      }
      runGuarded([&] { transfer->fail(makeError(URLError::timedOut)); });
    }
    return static_cast<int>(next.count());
  }

  void forget(const std::shared_ptr<CurlTransfer>& transfer) {
    if (running_.erase(transfer->handle()) > 0) curl_multi_remove_handle(multi_, transfer->handle());
    for (auto& [origin, queue] : waiting_) std::erase(queue, transfer);
  }

  std::optional<TrustedOrigin> trustedFor(const std::string& origin) {
    const std::lock_guard lock(mutex_);
    const auto found = std::find_if(trusted_.begin(), trusted_.end(),
                                    [&](const auto& trusted) { return trusted.origin == origin; });
    return found == trusted_.end() ? std::nullopt : std::optional(*found);
  }

  CURLM* multi_ = nullptr;
  std::map<CURL*, Running> running_;
  std::map<std::string, std::deque<std::shared_ptr<CurlTransfer>>> waiting_;  // by origin

  std::mutex mutex_;
  bool stopping_ = false;
  std::vector<std::shared_ptr<CurlTransfer>> starting_;
  std::vector<std::shared_ptr<CurlTransfer>> dropped_;
  std::vector<TrustedOrigin> trusted_;
};

// The engine and its thread, made by the first request.
class LazyEngine {
 public:
  ~LazyEngine() {
    if (!engine_) return;
    engine_->stop();
    if (isExiting()) {
      thread_.detach();  // it may wait for a turn that does not come any more
    } else {
      finish(thread_);
    }
  }

  std::shared_ptr<Engine> get() {
    const std::lock_guard lock(mutex_);
    if (!engine_) {
      const auto engine = std::make_shared<Engine>();
      for (const auto& trusted : trusted_) engine->trust(trusted);
      thread_ = startKitThread("orrelo-network", [engine] { engine->run(); });
      engine_ = engine;  // once it has its thread; without one, the next request tries again
    }
    return engine_;
  }

  void drop(std::shared_ptr<CurlTransfer> transfer) {
    const std::lock_guard lock(mutex_);
    if (engine_) engine_->drop(std::move(transfer));
  }

  void trust(TrustedOrigin trusted) {
    const std::lock_guard lock(mutex_);
    if (engine_) {
      engine_->trust(std::move(trusted));
    } else {
      trusted_.push_back(std::move(trusted));
    }
  }

 private:
  std::mutex mutex_;
  std::vector<TrustedOrigin> trusted_;
  std::shared_ptr<Engine> engine_;
  std::thread thread_;
};

class CurlURLSessionTask final : public URLSessionTask {
 public:
  CurlURLSessionTask(std::shared_ptr<LazyEngine> engine, std::shared_ptr<CurlTransfer> transfer)
      : engine_(std::move(engine)), transfer_(std::move(transfer)) {}

  void resume() override { engine_->get()->start(transfer_); }

  void cancel() override {
    if (transfer_->cancel()) engine_->drop(transfer_);
  }

 private:
  std::shared_ptr<LazyEngine> engine_;
  std::shared_ptr<CurlTransfer> transfer_;
};

class CurlURLSession final : public URLSession {
 public:
  std::shared_ptr<URLSessionTask> dataTask(URLRequest request, Completion completion) override {
    return makeTask(std::move(request), std::move(completion));
  }

  std::shared_ptr<URLSessionTask> streamingTask(URLRequest request,
                                                std::shared_ptr<URLSessionDataDelegate> delegate) override {
    return makeTask(std::move(request), std::move(delegate));
  }

  void trust(std::string_view origin, const std::string& certificateFile) override {
    if (const auto url = Url::parse(origin)) engine_->trust({originOf(*url), certificateFile});
  }

 private:
  template <class Receiver>
  std::shared_ptr<URLSessionTask> makeTask(URLRequest request, Receiver receiver) {
    return std::make_shared<CurlURLSessionTask>(
        engine_, std::make_shared<CurlTransfer>(std::move(request), std::move(receiver)));
  }

  std::shared_ptr<LazyEngine> engine_ = std::make_shared<LazyEngine>();
};

}  // namespace

std::shared_ptr<URLSession> makeCurlURLSession() {
  return std::make_shared<CurlURLSession>();
}

}  // namespace orrelo
