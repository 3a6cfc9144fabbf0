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

constexpr long connectionsPerHost = 6;
// What is beyond them waits as a request, which takes far less memory than curl's handle.
constexpr std::size_t maximumRunning = 64;

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
    curl_multi_setopt(multi_, CURLMOPT_MAX_HOST_CONNECTIONS, connectionsPerHost);
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
      finishDone();
      const auto wait = failIdle();
      {
        const std::lock_guard lock(mutex_);
        if (stopping_) break;
        if (!dropped_.empty() || (!starting_.empty() && running_.size() < maximumRunning)) continue;
      }
      curl_multi_poll(multi_, nullptr, 0, wait, nullptr);
    }
    closeConnections();
  }

 private:
  // On the network's thread: what is written to a connection that its server has left raises SIGPIPE, which
  // this thread alone takes no notice of.
  void closeConnections() {
    std::map<CURL*, std::shared_ptr<CurlTransfer>> left;  // their completions are let go outside the turn
    const std::lock_guard turn(curlTurn());
    std::swap(left, running_);
    for (const auto& [easy, transfer] : left) curl_multi_remove_handle(multi_, easy);
    curl_multi_cleanup(std::exchange(multi_, nullptr));
  }

  void startNew() {
    while (running_.size() < maximumRunning) {
      std::shared_ptr<CurlTransfer> transfer;
      {
        const std::lock_guard lock(mutex_);
        if (starting_.empty()) return;
        transfer = std::move(starting_.front());
        starting_.pop_front();
      }
      if (!transfer->isOver()) startHop(std::move(transfer));
    }
  }

  void startHop(std::shared_ptr<CurlTransfer> transfer) {
    CURL* const easy = transfer->prepare(trustedFor(transfer->url()));
    if (easy == nullptr || curl_multi_add_handle(multi_, easy) != CURLM_OK) {
      return transfer->fail(makeError(URLError::unknown, "There is no memory for the request"));
    }
    running_[easy] = std::move(transfer);
  }

  void forgetDropped() {
    std::vector<std::shared_ptr<CurlTransfer>> dropped;
    {
      const std::lock_guard lock(mutex_);
      std::swap(dropped, dropped_);
    }
    for (const auto& transfer : dropped) {
      if (running_.erase(transfer->handle()) > 0) curl_multi_remove_handle(multi_, transfer->handle());
    }
  }

  void finishDone() {
    while (true) {
      std::shared_ptr<CurlTransfer> transfer;
      CURLcode code = CURLE_OK;
      {
        const std::lock_guard turn(curlTurn());
        int waiting = 0;
        const CURLMsg* const message = curl_multi_info_read(multi_, &waiting);
        if (message == nullptr) return;
        if (message->msg != CURLMSG_DONE) continue;
        code = message->data.result;
        auto node = running_.extract(message->easy_handle);
        transfer = std::move(node.mapped());
        curl_multi_remove_handle(multi_, transfer->handle());
      }
      bool goesOn = false;
      runGuarded([&] { goesOn = transfer->finishHop(code); });
      if (goesOn) {
        const std::lock_guard lock(mutex_);
        starting_.push_front(std::move(transfer));
      }
    }
  }

  void deliverChunks() {
    for (const auto& [easy, transfer] : running_) runGuarded([&] { transfer->deliver(); });
  }

  // Says after how many milliseconds to look again.
  int failIdle() {
    using std::chrono::milliseconds;
    const auto now = std::chrono::steady_clock::now();
    milliseconds next{60'000};
    std::vector<std::shared_ptr<CurlTransfer>> idle;
    for (const auto& [easy, transfer] : running_) {
      const auto deadline = transfer->idleDeadline();
      if (!deadline) continue;
      if (*deadline <= now) {
        idle.push_back(transfer);
      } else {
        next = std::min(next, std::chrono::ceil<milliseconds>(*deadline - now));
      }
    }
    for (const auto& transfer : idle) {
      {
        const std::lock_guard turn(curlTurn());
        running_.erase(transfer->handle());
        curl_multi_remove_handle(multi_, transfer->handle());
      }
      runGuarded([&] { transfer->fail(makeError(URLError::timedOut)); });
    }
    return static_cast<int>(next.count());
  }

  std::optional<TrustedOrigin> trustedFor(const Url& url) {
    const auto origin = originOf(url);
    const std::lock_guard lock(mutex_);
    const auto found = std::find_if(trusted_.begin(), trusted_.end(),
                                    [&](const auto& trusted) { return trusted.origin == origin; });
    return found == trusted_.end() ? std::nullopt : std::optional(*found);
  }

  CURLM* multi_ = nullptr;
  std::map<CURL*, std::shared_ptr<CurlTransfer>> running_;

  std::mutex mutex_;
  bool stopping_ = false;
  std::deque<std::shared_ptr<CurlTransfer>> starting_;
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
