#include "DevService.h"
#include "SessionFixture.h"
#include "support/TemporaryFolder.h"

#include <gmock/gmock.h>

namespace orrelo::test {
namespace {

using devservice::DevService;
using devservice::Fault;
using namespace std::chrono_literals;
using Kind = Fault::Kind;

/// The session against the local service over HTTPS.
class CurlURLSessionTest : public SessionFixture {
 protected:
  CurlURLSessionTest() {
    service_.start();
    session_->trust(service_.baseUrl(), service_.certificatePath());
  }

  std::string url(const std::string& path) const {
    return service_.baseUrl() + "/orreloservice/sdk/app" + path;
  }
  std::string otherHost(const std::string& path = "") const {
    return "https://127.0.0.1:" + std::to_string(service_.port()) + path;
  }
  void redirect(const std::string& location, int status = 302, std::optional<int> count = 1) {
    service_.orderFault({.kind = Kind::redirect, .count = count, .status = status, .location = location});
  }
  devservice::RequestRecord lastRequest() const { return service_.requests().back(); }

  TemporaryFolder folder_;
  DevService service_{{.dataDirectory = folder_.path()}};
};

const std::string event = R"({"event_id":"1","event_name":"열림","event_time":"2026-05-04T03:02:01"})";

TEST_F(CurlURLSessionTest, SendsMethodHeadersAndBodyAsGiven) {
  auto sent = post(url("/event") + "?a=1&b=%20", event);
  sent.headers = {
      {"Kelso-UUID", "u-1"}, {"app_name", ""}, {"locale", "한국 ko"}, {"Content-Type", "application/json"}};
  const auto result = run(sent);
  ASSERT_TRUE(result.response) << text(result);
  EXPECT_EQ(result.response->statusCode / 100, 2);
  const auto seen = lastRequest();
  EXPECT_EQ(seen.method, "POST");
  EXPECT_EQ(seen.target, "/orreloservice/sdk/app/event?a=1&b=%20");
  EXPECT_EQ(seen.bodySize, event.size());
  EXPECT_EQ(service_.events().at(0).eventName, "열림");
  EXPECT_EQ(seen.header("Kelso-UUID"), "u-1");
  EXPECT_EQ(seen.header("app_name"), "");
  EXPECT_EQ(seen.header("locale"), "한국 ko");
  EXPECT_EQ(seen.header("Content-Type"), "application/json");

  const auto config = run(request(url("/config")));
  EXPECT_EQ(config.response->statusCode, 200);
  EXPECT_EQ(config.response->headers.at("content-type"), "application/json");
  EXPECT_THAT(*config.data, testing::HasSubstr("sdk_enable"));
  EXPECT_EQ(lastRequest().method, "GET");
  for (const auto* const absent : {"Content-Type", "Content-Length", "Cookie", "Expect", "buid"}) {
    EXPECT_FALSE(lastRequest().header(absent)) << absent;
  }
  EXPECT_EQ(text(run(post(url("/event"), ""))).substr(0, 3), "400");
  EXPECT_EQ(lastRequest().header("Content-Length"), "0");
}

TEST_F(CurlURLSessionTest, EveryStatusIsAReply) {
  for (const int status : {204, 304, 500}) {
    const bool hasBody = status > 400;
    service_.orderFault({.kind = Kind::status, .count = 1, .status = status, .body = hasBody ? "why" : ""});
    EXPECT_EQ(outcome(request(url("/config"))), std::to_string(status) + (hasBody ? " why" : " "));
  }
  const std::string bytes("\0\xFF\r\n", 4);
  service_.orderFault({.kind = Kind::body, .count = 1, .body = bytes});
  EXPECT_EQ(outcome(request(url("/config"))), "200 " + bytes);
}

TEST_F(CurlURLSessionTest, AFailedTransferIsAnErrorAndTheNextRequestWorks) {
  auto timed = request(url("/config"));
  timed.timeout = 300ms;
  for (const auto kind : {Kind::delay, Kind::hang}) {
    service_.orderFault({.kind = kind, .count = 1, .delay = 60s});
    EXPECT_EQ(outcome(timed), "timedOut");
  }
  service_.orderFault({.kind = Kind::drop, .count = 1});
  EXPECT_EQ(outcome(post(url("/event"), event)), "networkConnectionLost");
  service_.orderFault({.kind = Kind::truncate, .count = 1});
  EXPECT_EQ(outcome(request(url("/config"))), "networkConnectionLost");
  service_.clearFaults();
  EXPECT_EQ(run(request(url("/config"))).response->statusCode, 200);
  service_.stop();
  EXPECT_EQ(outcome(request(url("/config"))), "cannotConnectToHost");
}

TEST_F(CurlURLSessionTest, AReplyMayBeAsLargeAsTheRequestAllows) {
  service_.orderFault({.kind = Kind::body, .count = 1, .body = std::string(50'000'000, 'x')});
  const auto refused = run(request(url("/config")));
  EXPECT_EQ(text(refused), "dataLengthExceedsMaximum");
  EXPECT_FALSE(refused.data);

  auto limited = request(url("/config"));
  limited.maximumReplySize = 1000;
  for (const std::size_t size : {1000U, 1001U}) {
    service_.orderFault({.kind = Kind::body, .count = 1, .body = std::string(size, 'x')});
    EXPECT_EQ(text(run(limited)).substr(0, 3), size == 1000 ? "200" : "dat");
  }
}

TEST_F(CurlURLSessionTest, FollowsTwentyRedirects) {
  redirect(url("/config"), 302, 20);
  EXPECT_EQ(run(request(url("/config"))).response->statusCode, 200);
  redirect("config", 302, {});  // relative to the redirected URL
  EXPECT_EQ(outcome(request(url("/config"))), "httpTooManyRedirects");
  EXPECT_EQ(service_.requestCount("/config"), 21 + 21);
}

TEST_F(CurlURLSessionTest, RedirectsToOtherSchemesAndToNowhereAreTheReply) {
  for (const auto* const location : {"ftp://localhost/x", "file:///etc/hostname", "shop://item", "/a b|c"}) {
    redirect(location);
    EXPECT_EQ(run(request(url("/config"))).response->statusCode, 302) << location;
  }
  EXPECT_EQ(service_.requestCount(), 4);
}

TEST_F(CurlURLSessionTest, ARedirectKeepsOrChangesTheMethodByItsStatus) {
  for (const int status : {301, 302, 303, 307, 308}) {
    redirect(url("/event"), status);
    run(post(url("/x"), event));
    const bool keeps = status > 303;
    EXPECT_EQ(lastRequest().method, keeps ? "POST" : "GET") << status;
    EXPECT_EQ(lastRequest().bodySize, keeps ? event.size() : 0) << status;
  }
}

TEST_F(CurlURLSessionTest, IdentityStaysWithTheHostThatWasAsked) {
  session_->trust(otherHost(), service_.certificatePath());
  auto identified = request(url("/config"));
  identified.headers = {{"buid", "me"}, {"Kelso-UUID", "u-1"}, {"app_name", "a"}};
  redirect(url("/config?again"));
  run(identified);
  EXPECT_EQ(lastRequest().header("buid"), "me");

  redirect(otherHost("/orreloservice/sdk/app/config"));
  redirect(url("/config?back"));
  EXPECT_EQ(run(identified).response->statusCode, 200);
  const auto seen = service_.requests();
  EXPECT_EQ(seen.at(2).header("Kelso-UUID"), "u-1");
  for (const auto& after : {seen.at(3), seen.at(4)}) {  // a redirect back does not restore it
    for (const auto* const name : {"buid", "Kelso-UUID", "app_name"})
      EXPECT_FALSE(after.header(name)) << name;
  }
}

TEST_F(CurlURLSessionTest, NoBodyLeavesTheHostThatWasAsked) {
  session_->trust(otherHost(), service_.certificatePath());
  redirect(otherHost("/orreloservice/sdk/app/event"), 308);
  EXPECT_EQ(run(post(url("/event"), event)).response->statusCode, 308);
  redirect(otherHost("/orreloservice/sdk/app/config"), 303);
  EXPECT_EQ(run(post(url("/event"), event)).response->statusCode, 200);
  EXPECT_EQ(lastRequest().bodySize, 0u);
  EXPECT_EQ(service_.requestCount("/event"), 2);
}

TEST_F(CurlURLSessionTest, TrustHoldsForItsOriginAlone) {
  EXPECT_EQ(outcome(request(otherHost())), "secureConnectionFailed");
  session_->trust("https://LOCALHOST:" + std::to_string(service_.port()), service_.certificatePath());
  EXPECT_EQ(run(request(url("/config"))).response->statusCode, 200);
  redirect(otherHost());
  EXPECT_EQ(outcome(request(url("/config"))), "secureConnectionFailed");
  session_->trust(otherHost(), folder_ / "missing.pem");
  const auto failure = run(request(otherHost())).error->description();
  EXPECT_THAT(failure, testing::AllOf(testing::HasSubstr("secureConnectionFailed"),
                                      testing::HasSubstr("missing.pem)")))
      << "it names the file";
  session_ = makeCurlURLSession();
  EXPECT_EQ(outcome(request(url("/config"))), "secureConnectionFailed");
}

TEST_F(CurlURLSessionTest, ARequestThatHangsCanBeCancelled) {
  const auto fault = service_.orderFault({.kind = Kind::hang});
  bool ran = false;
  auto token = std::make_shared<int>();
  const std::weak_ptr<int> held = token;
  const auto task = session_->dataTask(request(url("/config")), [&ran, token](const auto&) { ran = true; });
  token.reset();
  task->resume();
  ASSERT_TRUE(service_.waitForRequests("/config", 1, 30s));
  task->cancel();
  EXPECT_TRUE(held.expired());
  service_.clearFault(fault);
  EXPECT_EQ(run(request(url("/config"))).response->statusCode, 200);
  EXPECT_FALSE(ran);
}

// A child process exits while a request hangs; its session is leaked or destroyed by the exit itself.
using CurlURLSessionDeathTest = CurlURLSessionTest;

TEST_F(CurlURLSessionDeathTest, ExitEndsTheProcessAtOnce) {
  testing::FLAGS_gtest_death_test_style = "threadsafe";
  for (const bool isStatic : {false, true}) {
    service_.orderFault({.kind = Kind::hang});
    const auto exitWhileHanging = [&] {
      static auto outliving = isStatic ? makeCurlURLSession() : nullptr;
      if (isStatic) session_ = std::exchange(outliving, session_);
      session_->trust(service_.baseUrl(), service_.certificatePath());
      const auto reply = start(request(url("/config")));
      if (!service_.waitForRequests("/config", 1, 30s)) std::exit(1);
      if (isStatic) outliving = std::exchange(session_, nullptr);
      std::exit(0);
    };
    EXPECT_EXIT(exitWhileHanging(), testing::ExitedWithCode(0), "");
    service_.clearFaults();
  }
}

}  // namespace
}  // namespace orrelo::test
