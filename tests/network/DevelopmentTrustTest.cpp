#include "DevService.h"
#include "network/KelsoMutator.h"
#include "support/TemporaryFolder.h"
#include "support/Twins.h"

#include <cstdio>
#include <gmock/gmock.h>
#include <memory>
#include <openssl/pem.h>

namespace orrelo::test {
namespace {

using devservice::DevService;

std::string derOf(const std::filesystem::path& pem) {
  const std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(std::fopen(pem.c_str(), "re"), &std::fclose);
  const std::unique_ptr<X509, void (*)(X509*)> certificate(
      PEM_read_X509(file.get(), nullptr, nullptr, nullptr), &X509_free);
  unsigned char* bytes = nullptr;
  const auto length = static_cast<std::size_t>(i2d_X509(certificate.get(), &bytes));
  std::string der(reinterpret_cast<const char*>(bytes), length);
  OPENSSL_free(bytes);
  return der;
}

class DevelopmentTrustTest : public testing::Test {
 protected:
  DevelopmentTrustTest() {
    service_.start();
    suite_->set("ORRELO_SERVICE_URL", std::int64_t{3});
    suite_->set("ORRELO_DEVELOPMENT_URL", service_.baseUrl());
    suite_->set("ORRELO_DEVELOPMENT_CA", service_.certificatePath().string());
  }
  bool trusts(const std::string& url, const CertificateChain& chain) const {
    return KelsoMutator(suite_).trusts(*Url::parse(url), chain);
  }

  TemporaryFolder folder_;
  DevService service_{{.dataDirectory = folder_.path() / "service"}};
  std::shared_ptr<MemoryDefaults> suite_ = std::make_shared<MemoryDefaults>();
};

TEST_F(DevelopmentTrustTest, HoldsForTheServicesOwnCertificateAndOriginAlone) {
  const auto page = service_.baseUrl() + "/pages/any.html?q=1";
  const CertificateChain chain{derOf(service_.certificatePath())};
  EXPECT_TRUE(trusts(page, chain));
  const auto port = std::to_string(service_.port());
  for (const std::string& url : {"https://other.example:" + port, std::string("https://localhost:1"),
                                 std::string("https://localhost"), "http://localhost:" + port}) {
    EXPECT_FALSE(trusts(url, chain)) << url;
  }

  DevService other({.dataDirectory = folder_.path() / "other"});
  const auto strange = derOf(other.certificatePath());
  EXPECT_FALSE(trusts(page, {strange}));
  EXPECT_FALSE(trusts(page, {strange, chain.front()})) << "only the leaf counts";
  EXPECT_FALSE(trusts(page, {}));
  EXPECT_FALSE(trusts(page, {chain.front().substr(0, 100)}));
  EXPECT_FALSE(trusts(page, {chain.front(), "no certificate"}));

  suite_->set("ORRELO_DEVELOPMENT_CA", std::string("/none.pem"));
  EXPECT_FALSE(trusts(page, chain));
}

TEST_F(DevelopmentTrustTest, NamesAndEnvironmentsAreChecked) {
  const CertificateChain chain{derOf(service_.certificatePath())};
  const auto port = std::to_string(service_.port());
  // The certificate names this machine by host name and by address.
  for (const auto& [host, isNamed] :
       {std::pair{"localhost", true}, {"127.0.0.1", true}, {"127.0.0.2", false}, {"pages.example", false}}) {
    const auto origin = std::string("https://") + host + ":" + port;
    suite_->set("ORRELO_DEVELOPMENT_URL", origin);
    EXPECT_EQ(trusts(origin + "/page", chain), isNamed) << host;
  }
  suite_->set("ORRELO_DEVELOPMENT_URL", service_.baseUrl());
  suite_->set("ORRELO_SERVICE_URL", std::int64_t{1});
  EXPECT_FALSE(trusts(service_.baseUrl(), chain)) << "another environment";
}

}  // namespace
}  // namespace orrelo::test
