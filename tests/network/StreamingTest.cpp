#include "RawServer.h"
#include "SessionFixture.h"
#include "platform/http/CurlTransfer.h"

#include <condition_variable>
#include <gmock/gmock.h>

namespace orrelo::test {
namespace {

using namespace std::chrono_literals;

/// Records what came and how it ended: "ok" or the error's name.
class Receiver final : public URLSessionDataDelegate {
 public:
  void onData(std::string_view bytes) override {
    const std::lock_guard lock(mutex_);
    received_ += bytes;
    changed_.notify_all();
  }
  void onCompletion(const std::optional<Error>& error) override {
    const std::lock_guard lock(mutex_);
    ending_ += error ? error->caseName() : "ok";
    changed_.notify_all();
  }

  /// The bytes so far; waits for `size` of them.
  std::string received(std::size_t size) {
    return waitFor(received_, [&] { return received_.size() >= size; });
  }
  std::string ending() {
    return waitFor(ending_, [&] { return !ending_.empty(); });
  }

 private:
  template <class Condition>
  std::string waitFor(const std::string& text, const Condition& condition) {
    std::unique_lock lock(mutex_);
    changed_.wait_for(lock, 30s, condition);
    return text;
  }

  std::mutex mutex_;
  std::condition_variable changed_;
  std::string received_;
  std::string ending_;
};

class StreamingTest : public SessionFixture {
 protected:
  std::shared_ptr<URLSessionTask> stream(URLRequest request) {
    const auto task = session_->streamingTask(std::move(request), receiver_);
    task->resume();
    return task;
  }
  static std::string head(int length) {
    return "HTTP/1.1 200 OK\r\nContent-Length: " + std::to_string(length) + "\r\n\r\n";
  }

  std::shared_ptr<Receiver> receiver_ = std::make_shared<Receiver>();
};

TEST_F(StreamingTest, BytesComeAsTheyAreSentAndWithoutThoseOfARedirect) {
  RawServer server([](const std::string& request) {
    if (request.starts_with("GET /new")) return head(6) + "abc";
    return RawServer::reply("moved", "HTTP/1.1 302 Found\r\nLocation: /new");
  });
  stream(request(server.url("/old")));
  EXPECT_EQ(receiver_->received(3), "abc");
  server.sendMore("def");
  EXPECT_EQ(receiver_->ending(), "ok");
  EXPECT_EQ(receiver_->received(6), "abcdef");
}

TEST_F(StreamingTest, TheWholeReplyCountsForItsSize) {
  RawServer server([](const std::string&) { return head(10) + "1234"; });
  auto limited = request(server.url());
  limited.maximumReplySize = 7;
  stream(limited);
  EXPECT_EQ(receiver_->received(4), "1234");
  server.sendMore("5678");
  EXPECT_EQ(receiver_->ending(), "dataLengthExceedsMaximum");
}

TEST_F(StreamingTest, NothingComesAfterACancel) {
  RawServer server([](const std::string&) { return head(6) + "abc"; });
  const auto task = stream(request(server.url()));
  EXPECT_EQ(receiver_->received(3), "abc");
  task->cancel();
  EXPECT_TRUE(server.waitForClosed(1));
  EXPECT_EQ(receiver_.use_count(), 1);
}

TEST_F(StreamingTest, AnIdleTimeoutBeginsAnewWithWhatComes) {
  RawServer server([](const std::string&) { return RawServer::reply("a"); });
  for (const bool isIdle : {true, false}) {
    auto timed = request(server.url());
    timed.isTimeoutIdle = isIdle;
    CurlTransfer transfer(timed, receiver_);
    transfer.startClock();
    ASSERT_NE(transfer.prepare(std::nullopt), nullptr);
    const auto atFirst = isIdle ? transfer.idleDeadline() : transfer.waitingDeadline();
    ASSERT_EQ(curl_easy_perform(transfer.handle()), CURLE_OK);
    if (isIdle) {
      EXPECT_GT(transfer.idleDeadline(), atFirst);
    } else {
      EXPECT_EQ(transfer.waitingDeadline(), atFirst);
    }
  }
}

TEST_F(StreamingTest, ASilentServerTimesOutAndTheOthersGoOn) {
  RawServer silent([](const std::string&) { return std::string(); });
  RawServer server([](const std::string&) { return RawServer::reply("ok"); });
  auto timed = request(silent.url());
  timed.timeout = 200ms;
  timed.isTimeoutIdle = true;
  EXPECT_EQ(outcome(timed), "timedOut");
  EXPECT_EQ(outcome(request(server.url())), "200 ok");
}

}  // namespace
}  // namespace orrelo::test
