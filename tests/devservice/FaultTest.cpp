#include "ServiceFixture.h"

#include <future>

namespace orrelo::devservice {

namespace {

using Kind = Fault::Kind;
using Clock = std::chrono::steady_clock;

class FaultTest : public ServiceFixture {
 protected:
  int sendStatus(const std::string& id) {
    const auto result = post(onApp("/event"), event(id));
    return result ? result->status : 0;
  }

  /// Requests the configuration on another thread and connection.
  std::future<int> configInBackground() {
    return std::async(std::launch::async, [own = makeClient()]() mutable {
      const auto result = own->Get(onApp("/config"));
      return result ? result->status : 0;
    });
  }
};

TEST_F(FaultTest, AFaultAppliesToTheRequestsThatItWasOrderedForInOrder) {
  service_->orderFault({.kind = Kind::status,
                        .method = "POST",
                        .pathSuffix = "/event",
                        .count = 2,
                        .status = 503,
                        .body = "busy",
                        .contentType = "text/plain"});
  EXPECT_EQ(client_->Get(onApp("/config"))->status, 200);
  EXPECT_EQ(post(onApp("/events"), json::array({event("E-0")}))->status, 200);
  const auto refused = post(onApp("/event"), event("E-1"));
  EXPECT_EQ(refused->status, 503);
  EXPECT_EQ(refused->body, "busy");
  EXPECT_EQ(refused->get_header_value("Content-Type"), "text/plain");
  EXPECT_EQ(sendStatus("E-1"), 503);
  EXPECT_EQ(sendStatus("E-1"), 200);
  EXPECT_EQ(service_->eventCount(), 2);
  EXPECT_TRUE(service_->faults().empty()) << "used up";

  service_->orderFault({.kind = Kind::status, .pathSuffix = "/event", .count = 1, .status = 500});
  service_->orderFault({.kind = Kind::drop, .pathSuffix = "/event", .count = 1});
  for (const int status : {500, 0, 200}) EXPECT_EQ(sendStatus("E-2"), status) << "faults apply in order";
}

TEST_F(FaultTest, ClearingLetsHeldRequestsBeAnswered) {
  service_->orderFault({.kind = Kind::hang, .pathSuffix = "/config", .count = 1});
  const auto late = service_->orderFault({.kind = Kind::delay, .pathSuffix = "/config", .delay = 1h});
  auto hung = configInBackground();
  ASSERT_TRUE(service_->waitForRequests("/config", 1, 10s));
  auto delayed = configInBackground();
  ASSERT_TRUE(service_->waitForRequests("/config", 2, 10s));

  EXPECT_TRUE(service_->clearFault(late));
  EXPECT_EQ(delayed.get(), 200);
  EXPECT_EQ(hung.wait_for(0s), std::future_status::timeout) << "the other fault still holds it";
  ASSERT_EQ(service_->faults().size(), 1U);
  EXPECT_EQ(service_->faults().front().waiting, 1);
  service_->clearFaults();
  EXPECT_EQ(hung.get(), 200);
  EXPECT_FALSE(service_->clearFault(late));
}

TEST_F(FaultTest, StoppingEndsHeldRequestsAtOnce) {
  service_->orderFault({.kind = Kind::hang, .pathSuffix = "/config"});
  std::vector<std::future<int>> held;
  held.reserve(12);
  for (int i = 0; i < 12; ++i) held.push_back(configInBackground());
  ASSERT_TRUE(service_->waitForRequests("/config", 12, 10s));

  const auto start = Clock::now();
  service_->stop();
  EXPECT_LT(Clock::now() - start, 1s);
  for (auto& request : held) EXPECT_EQ(request.get(), 0);
}

}  // namespace

}  // namespace orrelo::devservice
