#include "platform/http/CurlURLSession.h"

#include "platform/http/CurlTransfer.h"
#include "platform/threads/KitThread.h"

#include <algorithm>
#include <cstdlib>
#include <curl/curl.h>
#include <deque>
#include <map>
#include <mutex>
#include <openssl/crypto.h>
#include <optional>
#include <string>
#include <thread>
#include <utility>
#include <vector>

namespace orrelo {
namespace {

// The number of requests that may still start. Further requests wait in a queue here and not in curl's own
// queue (CURLMOPT_MAX_HOST_CONNECTIONS, in 7.88), which can stall: a request that waits there for a
// connection is not always woken when one becomes free. Requests with an idle timeout may run forever, so
// they have a smaller quota of their own.
struct Quota {
  int requests;
  int idleTimeoutRequests;

  bool allows(bool hasIdleTimeout) const {
    return requests > 0 && (!hasIdleTimeout || idleTimeoutRequests > 0);
  }
  void use(bool hasIdleTimeout) {
    --requests;
    if (hasIdleTimeout) --idleTimeoutRequests;
  }
};
constexpr Quota totalQuota{.requests = 64, .idleTimeoutRequests = 48};
constexpr Quota hostQuota{.requests = 6, .idleTimeoutRequests = 4};

// Held while the session's thread is inside curl. An exit handler locks it forever, so that no transfer runs
// while other libraries' exit handlers destroy what it uses.
std::mutex& curlMutex() {
  static auto* const mutex = new std::mutex;
  return *mutex;
}

void initializeCurl() {
  static const bool initialized = [] {
    OPENSSL_init_crypto(OPENSSL_INIT_NO_ATEXIT, nullptr);
    curl_global_init(CURL_GLOBAL_DEFAULT);
    isExiting();  // registers its exit handler before the one below
    std::atexit([] { curlMutex().lock(); });
    return true;
  }();
  static_cast<void>(initialized);
}

// The state shared between the session and its thread.
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

  /// Releases the resources of a cancelled transfer.
  void cancel(std::shared_ptr<CurlTransfer> transfer) {
    {
      const std::lock_guard lock(mutex_);
      if (stopping_) return;
      cancelled_.push_back(std::move(transfer));
    }
    curl_multi_wakeup(multi_);
  }

  void stop() {
    const std::lock_guard lock(mutex_);  // keeps the thread from destroying multi_ before the wakeup
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
        const std::lock_guard curlLock(curlMutex());
        removeCancelled();
        startNew();
        int count = 0;
        curl_multi_perform(multi_, &count);
      }
      failUnstarted();
      deliverChunks();
      const bool hasFinished = finishCompleted();
      const auto wait = failTimedOut();
      {
        const std::lock_guard lock(mutex_);
        if (stopping_) break;
        if (hasFinished || !cancelled_.empty() || !starting_.empty()) continue;
      }
      curl_multi_poll(multi_, nullptr, 0, wait, nullptr);
    }
    closeConnections();
  }

 private:
  /// A transfer and the host of its current URL, which redirects change.
  struct HostTransfer {
    std::shared_ptr<CurlTransfer> transfer;
    std::string host;
  };

  // Must run on the network's thread, which blocks SIGPIPE: writing to a connection that the server has
  // closed raises it.
  void closeConnections() {
    std::map<CURL*, HostTransfer> left;  // destroyed after the mutex is released
    const std::lock_guard curlLock(curlMutex());
    std::swap(left, running_);
    for (const auto& [easy, running] : left) curl_multi_remove_handle(multi_, easy);
    curl_multi_cleanup(std::exchange(multi_, nullptr));
  }

  // Starts waiting requests, oldest first; requests that exceed a quota keep waiting.
  void startNew() {
    std::vector<std::shared_ptr<CurlTransfer>> starting;
    {
      const std::lock_guard lock(mutex_);
      std::swap(starting, starting_);
    }
    for (auto& transfer : starting) waiting_.push_back(withHost(std::move(transfer)));
    if (waiting_.empty()) return;
    Quota total = totalQuota;
    std::map<std::string, Quota> hosts;
    const auto quotaOf = [&](const HostTransfer& entry) -> Quota& {
      return hosts.try_emplace(entry.host, hostQuota).first->second;
    };
    for (const auto& [easy, entry] : running_) {
      total.use(entry.transfer->hasIdleTimeout());
      quotaOf(entry).use(entry.transfer->hasIdleTimeout());
    }
    std::deque<HostTransfer> left;
    for (auto& entry : waiting_) {
      const bool hasIdleTimeout = entry.transfer->hasIdleTimeout();
      if (entry.transfer->isOver()) continue;
      if (!total.allows(hasIdleTimeout) || !quotaOf(entry).allows(hasIdleTimeout)) {
        left.push_back(std::move(entry));
      } else if (startTransfer(entry)) {
        total.use(hasIdleTimeout);
        quotaOf(entry).use(hasIdleTimeout);
      }
    }
    waiting_ = std::move(left);
  }

  static HostTransfer withHost(std::shared_ptr<CurlTransfer> transfer) {
    auto host = hostOf(transfer->url());
    return {std::move(transfer), std::move(host)};
  }

  bool startTransfer(const HostTransfer& entry) {
    const auto& url = entry.transfer->url();
    if (!isHttp(url)) {  // curl would guess the scheme
      unstarted_.emplace_back(entry.transfer, makeError(URLError::unsupportedURL));
      return false;
    }
    CURL* const easy = entry.transfer->prepare(trustedFor(originOf(url)));
    if (easy == nullptr || curl_multi_add_handle(multi_, easy) != CURLM_OK) {
      unstarted_.emplace_back(entry.transfer,
                              makeError(URLError::unknown, "There is no memory for the request"));
      return false;
    }
    running_[easy] = entry;
    return true;
  }

  // Runs completions, so the curl mutex must not be held.
  void failUnstarted() {
    for (const auto& [transfer, error] : std::exchange(unstarted_, {})) {
      runTask([&failed = transfer, &why = error] { failed->fail(why); });
    }
  }

  void removeCancelled() {
    std::vector<std::shared_ptr<CurlTransfer>> cancelled;
    {
      const std::lock_guard lock(mutex_);
      std::swap(cancelled, cancelled_);
    }
    for (const auto& transfer : cancelled) remove(transfer);
  }

  // True if requests have finished, so that others may start.
  bool finishCompleted() {
    bool hasFinished = false;
    while (const auto done = takeCompleted()) {
      hasFinished = true;
      bool isRedirected = false;
      runTask([&] { isRedirected = done->first->finishRequest(done->second); });
      if (isRedirected) waiting_.push_front(withHost(done->first));
    }
    return hasFinished;
  }

  std::optional<std::pair<std::shared_ptr<CurlTransfer>, CURLcode>> takeCompleted() {
    const std::lock_guard curlLock(curlMutex());
    int left = 0;
    while (const auto* const message = curl_multi_info_read(multi_, &left)) {
      if (message->msg != CURLMSG_DONE) continue;
      const CURLcode code = message->data.result;  // the message is freed with the handle
      auto transfer = running_.extract(message->easy_handle).mapped().transfer;
      curl_multi_remove_handle(multi_, transfer->handle());
      return std::pair(std::move(transfer), code);
    }
    return std::nullopt;
  }

  void deliverChunks() {
    for (const auto& [easy, entry] : running_) {
      runTask([&transfer = entry.transfer] { transfer->deliver(); });
    }
  }

  // Fails the requests whose deadline has passed. Returns the time until the next deadline, in milliseconds.
  int failTimedOut() {
    using std::chrono::milliseconds;
    const auto now = std::chrono::steady_clock::now();
    milliseconds next{60'000};
    std::vector<std::shared_ptr<CurlTransfer>> timedOut;
    const auto check = [&](const auto& transfer, const auto& deadline) {
      if (!deadline) return;
      if (*deadline <= now) timedOut.push_back(transfer);
      next = std::min(next, std::max(milliseconds{0}, std::chrono::ceil<milliseconds>(*deadline - now)));
    };
    for (const auto& [easy, entry] : running_) check(entry.transfer, entry.transfer->idleDeadline());
    for (const auto& entry : waiting_) check(entry.transfer, entry.transfer->waitingDeadline());
    for (const auto& transfer : timedOut) {
      {
        const std::lock_guard curlLock(curlMutex());
        remove(transfer);
      }
      runTask([&] { transfer->fail(makeError(URLError::timedOut)); });
    }
    return static_cast<int>(next.count());
  }

  void remove(const std::shared_ptr<CurlTransfer>& transfer) {
    if (running_.erase(transfer->handle()) > 0) curl_multi_remove_handle(multi_, transfer->handle());
    std::erase_if(waiting_, [&](const HostTransfer& entry) { return entry.transfer == transfer; });
  }

  std::optional<TrustedOrigin> trustedFor(const std::string& origin) {
    const std::lock_guard lock(mutex_);
    const auto found = std::find_if(trusted_.begin(), trusted_.end(),
                                    [&](const auto& trusted) { return trusted.origin == origin; });
    return found == trusted_.end() ? std::nullopt : std::optional(*found);
  }

  CURLM* multi_ = nullptr;
  std::map<CURL*, HostTransfer> running_;
  std::deque<HostTransfer> waiting_;
  std::vector<std::pair<std::shared_ptr<CurlTransfer>, Error>> unstarted_;

  std::mutex mutex_;
  bool stopping_ = false;
  std::vector<std::shared_ptr<CurlTransfer>> starting_;
  std::vector<std::shared_ptr<CurlTransfer>> cancelled_;
  std::vector<TrustedOrigin> trusted_;
};

// Creates the engine and its thread on the first request.
class LazyEngine {
 public:
  ~LazyEngine() {
    if (!engine_) return;
    engine_->stop();
    finish(thread_);
  }

  std::shared_ptr<Engine> get() {
    const std::lock_guard lock(mutex_);
    if (!engine_) {
      const auto engine = std::make_shared<Engine>();
      for (const auto& trusted : trusted_) engine->trust(trusted);
      thread_ = startKitThread("orrelo-network", [engine] { engine->run(); });
      engine_ = engine;  // only with a thread; otherwise the next request tries again
    }
    return engine_;
  }

  void cancel(std::shared_ptr<CurlTransfer> transfer) {
    const std::lock_guard lock(mutex_);
    if (engine_) engine_->cancel(std::move(transfer));
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
    if (transfer_->cancel()) engine_->cancel(transfer_);
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
