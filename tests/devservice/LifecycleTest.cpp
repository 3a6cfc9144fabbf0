#include "ServiceFixture.h"

namespace orrelo::devservice {

namespace {

using LifecycleTest = ServiceFixture;
using Clock = std::chrono::steady_clock;

std::string contents(const std::filesystem::path& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

TEST_F(LifecycleTest, ANewServiceFindsDataAndCertificateAgain) {
  post(onApp("/event"), event("E-1", "opened", {{"user_id", "mina"}}));
  post(onApp("/token"), {{"token", "T"}, {"buid", "mina"}});
  const auto certificate = contents(service_->certificatePath());
  const auto address = service_->baseUrl();

  service_.reset();
  startService();
  EXPECT_EQ(service_->baseUrl(), address);
  EXPECT_EQ(contents(service_->certificatePath()), certificate);
  EXPECT_EQ(service_->eventCount(), 1);
  EXPECT_EQ(service_->tokens().size(), 1U);
  post(onApp("/event"), event("E-1"));
  EXPECT_EQ(service_->events().front().deliveries, 2);
}

TEST_F(LifecycleTest, StopsAndStartsOnTheSamePort) {
  for (int round = 0; round < 3; ++round) {
    EXPECT_EQ(client_->Get(onApp("/config"))->status, 200);
    const auto begin = Clock::now();
    service_->stop();
    EXPECT_LT(Clock::now() - begin, 1s) << "although the client keeps its connection open";
    EXPECT_FALSE(service_->isRunning());
    EXPECT_FALSE(client_->Get(onApp("/config")));
    service_->start();
    EXPECT_EQ(service_->port(), port_);
  }
  service_->start();
  EXPECT_EQ(client_->Get(onApp("/config"))->status, 200);
}

TEST_F(LifecycleTest, RefusesAPortInUse) {
  TemporaryFolder other;
  DevService second({.dataDirectory = other.path(), .port = port_});
  EXPECT_THROW(second.start(), std::runtime_error);
  EXPECT_FALSE(second.isRunning());
  service_->stop();
  EXPECT_NO_THROW(second.start());
}

TEST_F(LifecycleTest, TheCertificateHoldsForBothNamesAndNoOtherIsTrusted) {
  EXPECT_TRUE(makeClient("localhost")->Get(onApp("/config")));
  EXPECT_TRUE(makeClient("127.0.0.1")->Get(onApp("/config")));

  TemporaryFolder other;
  const DevService stranger({.dataDirectory = other.path()});
  const auto mistrusting = makeClient();
  mistrusting->set_ca_cert_path(stranger.certificatePath().c_str());
  EXPECT_EQ(mistrusting->Get(onApp("/config")).error(), httplib::Error::SSLServerVerification);
}

}  // namespace

}  // namespace orrelo::devservice
