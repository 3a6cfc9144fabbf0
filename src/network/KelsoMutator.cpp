#include "network/KelsoMutator.h"

#include "platform/http/HttpUrl.h"

namespace orrelo {
namespace {

constexpr auto selectorKey = "ORRELO_SERVICE_URL";
constexpr std::int64_t development = 3;

}  // namespace

bool KelsoMutator::isDevelopment() const {
  return userDefaults_ && userDefaults_->integer(selectorKey) == development;
}

std::string_view KelsoMutator::environment() const {
  switch (userDefaults_ ? userDefaults_->integer(selectorKey).value_or(0) : 0) {
    case 1:
      return "staging";
    case 2:
      return "staging QA";
    case development:
      return "development";
    default:
      return "production";
  }
}

std::string KelsoMutator::serviceUrl() const {
  switch (userDefaults_ ? userDefaults_->integer(selectorKey).value_or(0) : 0) {
    case 1:
      return "https://api-staging.orrelo.example";
    case 2:
      return "https://api-staging-qa.orrelo.example";
    case development:
      break;
    default:
      return "https://api.orrelo.example";
  }
  if (const auto text = userDefaults_->text("ORRELO_DEVELOPMENT_URL")) {
    const auto url = Url::parse(*text);
    // Paths start with "/" and are appended as text, so trailing slashes are removed.
    if (url && url->scheme() == "https" && !url->host().empty())
      return text->substr(0, text->find_last_not_of('/') + 1);
  }
  return "https://localhost:9443";
}

std::optional<std::string> KelsoMutator::certificateFile() const {
  return isDevelopment() ? userDefaults_->text("ORRELO_DEVELOPMENT_CA") : std::nullopt;
}

bool KelsoMutator::trusts(const Url& url, const CertificateChain& chain) const {
  const auto file = certificateFile();
  const auto service = Url::parse(serviceUrl());
  return file && service && originOf(url) == originOf(*service) && isTrusted(chain, hostOf(url), *file);
}

}  // namespace orrelo
