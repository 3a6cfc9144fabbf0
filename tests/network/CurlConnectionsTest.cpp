#include "RawServer.h"
#include "SessionFixture.h"

#include <algorithm>
#include <gmock/gmock.h>
#include <mutex>
#include <semaphore>

namespace orrelo::test {
namespace {

/// The session over plain HTTP, for what only the wire shows.
class CurlConnectionsTest : public SessionFixture {
 protected:
  /// Replies "ok" to one path and leaves the others unanswered.
  static RawServer::Responder hangsBut(const std::string& path) {
    return [path](const std::string& request) {
      return request.starts_with("GET " + path + " ") ? RawServer::reply("ok") : std::string();
    };
  }
};

TEST_F(CurlConnectionsTest, AHeaderValueIsOneLine) {
  RawServer server([](const std::string& request) { return RawServer::reply(request); });
  auto sent = request(server.url("/a/../b"));
  sent.headers = {{"buid", std::string("a\r\nEvil: 1\n\r\n\0b\t", 17)}, {"empty", "\r\n"}};
  const auto head = outcome(sent);
  EXPECT_THAT(head, testing::HasSubstr("GET /a/../b HTTP/1.1\r\n"));
  EXPECT_THAT(head, testing::HasSubstr("\r\nbuid: a  Evil: 1    b\r\n"));
  EXPECT_THAT(head, testing::ContainsRegex("\r\nempty: *\r\n"));
  EXPECT_THAT(head, testing::Not(testing::HasSubstr("\nEvil")));
}

TEST_F(CurlConnectionsTest, AReplyThatIsNoHttpHasNoResponse) {
  for (const std::string bytes : {"SSH-2.0-server\r\n\r\n", "{\"json\":1}"}) {
    std::string answer = bytes;
    RawServer server([&](const std::string&) { return answer; });
    EXPECT_EQ(outcome(request(server.url())), "none") << bytes;
  }
  for (const auto& [answer, expected] : std::vector<std::pair<std::string, std::string>>{
           {"HTTP/1.1 200 OK\r\nX: a\r\nx: b\r\nContent-Length: 2\r\n\r\nok", "200 ok"},
           {"HTTP/1.1 100 Continue\r\nA: 1\r\n\r\nHTTP/1.1 200 OK\r\nContent-Length: 2\r\n\r\nok", "200 ok"},
           {"HTTP/1.1 200 OK\r\nContent-Encoding: gzip\r\nContent-Length: 3\r\n\r\nabc",
            "cannotDecodeContentData"}}) {
    RawServer server([&, &answer = answer](const std::string&) { return answer; });
    const auto result = run(request(server.url()));
    EXPECT_EQ(text(result), expected);
    EXPECT_FALSE(result.response && result.response->headers.contains("a")) << "a header of an interim reply";
  }
}

TEST_F(CurlConnectionsTest, HeadersWithoutEndAreTooLarge) {
  std::string head = "HTTP/1.1 200 OK";
  for (int i = 0; i < 300; ++i) head.append("\r\nX: ").append(1000, 'x');
  RawServer server([&](const std::string&) { return RawServer::reply("ok", head); });
  EXPECT_EQ(outcome(request(server.url())), "dataLengthExceedsMaximum");
}

// Many rounds: whether a request that waits for a connection is forgotten depends on timing.
TEST_F(CurlConnectionsTest, ManyRequestsShareSixConnections) {
  for (int round = 0; round < 20; ++round) {
    session_ = makeCurlURLSession();
    std::promise<void> gate;
    const std::shared_future<void> opened = gate.get_future().share();
    RawServer server([opened](const std::string& request) {
      opened.wait();
      return RawServer::reply(request.substr(0, request.find(" HTTP")));
    });
    std::vector<Reply> replies;
    for (int i = 0; i < 64; ++i) replies.push_back(start(request(server.url("/" + std::to_string(i)))));
    ASSERT_TRUE(server.waitForRequests(6));
    gate.set_value();
    for (std::size_t i = 0; i < replies.size(); ++i) {
      ASSERT_EQ(text(wait(std::move(replies[i]))), "200 GET /" + std::to_string(i));
    }
    EXPECT_EQ(server.connectionCount(), 6U);
  }
}

TEST_F(CurlConnectionsTest, ARequestThatWaitsForAConnectionCanTimeOutOrBeCancelled) {
  RawServer server([](const std::string&) { return std::string(); });
  std::vector<Reply> hanging;
  for (int i = 0; i < 6; ++i) hanging.push_back(start(request(server.url())));
  ASSERT_TRUE(server.waitForRequests(6));
  const auto held = std::make_shared<int>();
  const auto cancelled = session_->dataTask(request(server.url()), [held](const auto&) { FAIL(); });
  cancelled->resume();
  auto late = request(server.url());
  late.timeout = std::chrono::milliseconds(50);
  EXPECT_EQ(outcome(late), "timedOut");
  cancelled->cancel();
  EXPECT_EQ(held.use_count(), 1);

  RawServer other([](const std::string&) { return RawServer::reply("ok"); });
  EXPECT_EQ(outcome(request(other.url("/", "localhost"))), "200 ok")
      << "another host has connections of its own";
  EXPECT_EQ(server.connectionCount(), 6U);
}

TEST_F(CurlConnectionsTest, AWaitingRequestStartsWhenARunningOneIsCancelledOrTimesOut) {
  RawServer server(hangsBut("/ok"));
  RawServer away([&](const std::string&) {
    return RawServer::reply("", "HTTP/1.1 302 Found\r\nLocation: " + server.url("/ok"));
  });
  std::vector<std::shared_ptr<URLSessionTask>> hanging;
  for (int i = 0; i < 6; ++i) {
    hanging.push_back(session_->dataTask(request(server.url()), [](const auto&) {}));
    hanging.back()->resume();
  }
  ASSERT_TRUE(server.waitForRequests(6));
  auto waiting = start(request(server.url("/ok")));
  hanging[0]->cancel();
  EXPECT_EQ(text(wait(std::move(waiting))), "200 ok");

  auto timed = request(server.url());
  timed.timeout = std::chrono::milliseconds(200);
  auto late = start(timed);
  ASSERT_TRUE(server.waitForRequests(8));
  auto redirected = start(request(away.url("/", "localhost")));
  EXPECT_EQ(text(wait(std::move(late))), "timedOut");
  EXPECT_EQ(text(wait(std::move(redirected))), "200 ok")
      << "redirected to a host whose connections were all in use";
}

TEST_F(CurlConnectionsTest, RequestsWithoutADeadlineLeaveConnectionsToTheOthers) {
  RawServer server(hangsBut("/ok"));
  auto endless = request(server.url());
  endless.isTimeoutIdle = true;
  std::vector<Reply> streams;
  for (int i = 0; i < 10; ++i) streams.push_back(start(endless));
  ASSERT_TRUE(server.waitForRequests(4));
  for (int i = 0; i < 3; ++i) EXPECT_EQ(outcome(request(server.url("/ok"))), "200 ok");
  EXPECT_EQ(server.connectionCount(), 5U);
}

TEST_F(CurlConnectionsTest, ThereAreSixtyFourRequestsAtATime) {
  std::promise<void> gate;
  const std::shared_future<void> opened = gate.get_future().share();
  std::mutex mutex;
  int together = 0, most = 0;
  std::counting_semaphore<> arrived(0);
  const auto count = [&](int change) {
    const std::lock_guard lock(mutex);
    together += change;
    most = std::max(most, together);
  };
  RawServer server([&, opened](const std::string&) {
    count(+1);
    arrived.release();
    opened.wait();
    count(-1);
    return RawServer::reply("ok");
  });
  std::vector<Reply> replies;
  for (int i = 0; i < 80; ++i) {
    replies.push_back(start(request(server.url("/", "127.0.0." + std::to_string(1 + i % 16)))));
  }
  bool haveAllArrived = true;
  for (int i = 0; i < 64; ++i) {
    haveAllArrived = haveAllArrived && arrived.try_acquire_for(std::chrono::seconds(30));
  }
  EXPECT_TRUE(haveAllArrived);
  gate.set_value();
  for (auto& reply : replies) ASSERT_EQ(text(wait(std::move(reply))), "200 ok");
  const std::lock_guard lock(mutex);
  EXPECT_EQ(most, 64);
}

TEST_F(CurlConnectionsTest, AUrlWithoutAWebSchemeOrAHostIsRefused) {
  RawServer server([](const std::string&) { return RawServer::reply("ok"); });
  const auto address = server.url("/image.png").substr(5);
  for (const auto& url : {address, std::string("image.png"), std::string("http:a"), "ftp:" + address,
                          std::string("file:///etc/passwd")}) {
    EXPECT_EQ(outcome(request(url)), "unsupportedURL") << url;
  }
  EXPECT_EQ(server.connectionCount(), 0U);
}

TEST_F(CurlConnectionsTest, EightThreadsAskAndCancelAtOnce) {
  RawServer server([](const std::string& request) { return RawServer::reply(request.substr(0, 4)); });
  std::vector<std::jthread> threads;
  for (int thread = 0; thread < 8; ++thread) {
    threads.emplace_back([&, thread] {
      for (int i = 0; i < 25; ++i) {
        const auto dropped = session_->dataTask(request(server.url()), [](const auto&) {});
        dropped->resume();
        session_->trust("https://host" + std::to_string(thread), "/none.pem");
        EXPECT_EQ(outcome(post(server.url(), std::string(1000, 'x'))), "200 POST");
        dropped->cancel();
      }
    });
  }
  threads.clear();
  EXPECT_LE(server.connectionCount(), 8U * 25);
}

TEST_F(CurlConnectionsTest, TheServerSeesACancelledRequestGo) {
  RawServer server([](const std::string&) { return std::string(); });
  const auto unsent = session_->dataTask(request(server.url()), [](const auto&) { FAIL(); });
  unsent->cancel();
  unsent->resume();
  const auto task = session_->dataTask(request(server.url()), [](const auto&) { FAIL(); });
  task->resume();
  ASSERT_TRUE(server.waitForRequests(1));
  task->cancel();
  EXPECT_TRUE(server.waitForClosed(1));
  task->cancel();
  EXPECT_EQ(server.connectionCount(), 1U);
}

TEST_F(CurlConnectionsTest, ASessionMayGoWhileRequestsHang) {
  RawServer server([](const std::string&) { return std::string(); });
  const auto token = std::make_shared<int>();
  for (int i = 0; i < 10; ++i) {
    session_->dataTask(request(server.url()), [token](const auto&) { FAIL(); })->resume();
  }
  ASSERT_TRUE(server.waitForRequests(6));
  session_.reset();
  EXPECT_TRUE(server.waitForClosed(6));
  EXPECT_EQ(token.use_count(), 1);
}

TEST_F(CurlConnectionsTest, ACompletionMayStartARequestOrEndTheSession) {
  RawServer server([](const std::string&) { return RawServer::reply("ok"); });
  std::promise<std::string> last;
  auto* const session = session_.get();
  const auto first = session->dataTask(request(server.url()), [&](const auto&) {
    session
        ->dataTask(request(server.url()),
                   [&](const URLSessionResult& result) {
                     session_.reset();
                     last.set_value(text(result));
                   })
        ->resume();
    throw std::runtime_error("harmless");
  });
  first->resume();
  EXPECT_EQ(last.get_future().get(), "200 ok");
}

}  // namespace
}  // namespace orrelo::test
