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

// The others wait here and not in curl, whose own queue (CURLMOPT_MAX_HOST_CONNECTIONS, in 7.88) can forget
// its last ones: one that finds no connection free is not always woken by the next that becomes free.
// Those with an idle timeout may last for ever: they leave room for the others.
struct Room {
  int forAll;
  int forIdleTimed;

  bool has(bool isIdleTimed) const { return forAll > 0 && (!isIdleTimed || forIdleTimed > 0); }
  void take(bool isIdleTimed) {
    --forAll;
    if (isIdleTimed) --forIdleTimed;
  }
};
constexpr Room roomInAll{.forAll = 64, .forIdleTimed = 48};
constexpr Room roomPerHost{.forAll = 6, .forIdleTimed = 4};

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
      failUnstarted();
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
  struct Hop {
    std::shared_ptr<CurlTransfer> transfer;
    std::string host;
  };

  // On the network's thread: what is written to a connection that its server has left raises SIGPIPE, which
  // this thread alone takes no notice of.
  void closeConnections() {
    std::map<CURL*, Hop> left;  // their completions are let go outside the turn
    const std::lock_guard turn(curlTurn());
    std::swap(left, running_);
    for (const auto& [easy, running] : left) curl_multi_remove_handle(multi_, easy);
    curl_multi_cleanup(std::exchange(multi_, nullptr));
  }

  // The oldest first, but for those whose host has no room.
  void startNew() {
    std::vector<std::shared_ptr<CurlTransfer>> starting;
    {
      const std::lock_guard lock(mutex_);
      std::swap(starting, starting_);
    }
    for (auto& transfer : starting) waiting_.push_back(hopOf(std::move(transfer)));
    if (waiting_.empty()) return;
    Room inAll = roomInAll;
    std::map<std::string, Room> atHosts;
    const auto roomAt = [&](const Hop& hop) -> Room& {
      return atHosts.try_emplace(hop.host, roomPerHost).first->second;
    };
    for (const auto& [easy, hop] : running_) {
      inAll.take(hop.transfer->isIdleTimed());
      roomAt(hop).take(hop.transfer->isIdleTimed());
    }
    std::deque<Hop> left;
    for (auto& hop : waiting_) {
      const bool isIdleTimed = hop.transfer->isIdleTimed();
      if (hop.transfer->isOver()) continue;
      if (!inAll.has(isIdleTimed) || !roomAt(hop).has(isIdleTimed)) {
        left.push_back(std::move(hop));
      } else if (startHop(hop)) {
        inAll.take(isIdleTimed);
        roomAt(hop).take(isIdleTimed);
      }
    }
    waiting_ = std::move(left);
  }

  static Hop hopOf(std::shared_ptr<CurlTransfer> transfer) {
    auto host = hostOf(transfer->url());
    return {std::move(transfer), std::move(host)};
  }

  bool startHop(const Hop& hop) {
    const auto& url = hop.transfer->url();
    if (!isHttp(url)) {  // curl would guess what is meant
      unstarted_.emplace_back(hop.transfer, makeError(URLError::unsupportedURL));
      return false;
    }
    CURL* const easy = hop.transfer->prepare(trustedFor(originOf(url)));
    if (easy == nullptr || curl_multi_add_handle(multi_, easy) != CURLM_OK) {
      unstarted_.emplace_back(hop.transfer,
                              makeError(URLError::unknown, "There is no memory for the request"));
      return false;
    }
    running_[easy] = hop;
    return true;
  }

  // Outside the turn, since completions run.
  void failUnstarted() {
    for (const auto& [transfer, error] : std::exchange(unstarted_, {})) {
      runTask([&failed = transfer, &why = error] { failed->fail(why); });
    }
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
    bool madeRoom = false;
    while (const auto done = takeDone()) {
      madeRoom = true;
      bool goesOn = false;
      runTask([&] { goesOn = done->first->finishHop(done->second); });
      if (goesOn) waiting_.push_front(hopOf(done->first));
    }
    return madeRoom;
  }

  std::optional<std::pair<std::shared_ptr<CurlTransfer>, CURLcode>> takeDone() {
    const std::lock_guard turn(curlTurn());
    int left = 0;
    while (const auto* const message = curl_multi_info_read(multi_, &left)) {
      if (message->msg != CURLMSG_DONE) continue;
      const CURLcode code = message->data.result;  // the message goes with the handle
      auto transfer = running_.extract(message->easy_handle).mapped().transfer;
      curl_multi_remove_handle(multi_, transfer->handle());
      return std::pair(std::move(transfer), code);
    }
    return std::nullopt;
  }

  void deliverChunks() {
    for (const auto& [easy, hop] : running_) {
      runTask([&transfer = hop.transfer] { transfer->deliver(); });
    }
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
    for (const auto& [easy, hop] : running_) look(hop.transfer, hop.transfer->idleDeadline());
    for (const auto& hop : waiting_) look(hop.transfer, hop.transfer->waitingDeadline());
    for (const auto& transfer : late) {
      {
        const std::lock_guard turn(curlTurn());
        forget(transfer);
      }
      runTask([&] { transfer->fail(makeError(URLError::timedOut)); });
    }
    return static_cast<int>(next.count());
  }

  void forget(const std::shared_ptr<CurlTransfer>& transfer) {
    if (running_.erase(transfer->handle()) > 0) curl_multi_remove_handle(multi_, transfer->handle());
    std::erase_if(waiting_, [&](const Hop& hop) { return hop.transfer == transfer; });
  }

  std::optional<TrustedOrigin> trustedFor(const std::string& origin) {
    const std::lock_guard lock(mutex_);
    const auto found = std::find_if(trusted_.begin(), trusted_.end(),
                                    [&](const auto& trusted) { return trusted.origin == origin; });
    return found == trusted_.end() ? std::nullopt : std::optional(*found);
  }

  CURLM* multi_ = nullptr;
  std::map<CURL*, Hop> running_;
  std::deque<Hop> waiting_;
  std::vector<std::pair<std::shared_ptr<CurlTransfer>, Error>> unstarted_;

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
    finish(thread_);
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
