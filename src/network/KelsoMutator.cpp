#include "network/KelsoMutator.h"

#include "platform/http/HttpUrl.h"

namespace orrelo {
namespace {

constexpr auto selectorKey = "ORRELO_SERVICE_URL";
constexpr std::int64_t development = 3;

std::string developmentUrl(const std::string& text) {
  const auto url = Url::parse(text);
  if (!url || url->scheme() != "https" || url->host().empty()) return "https://localhost:9443";
  // Paths start with "/" and are appended as text, so trailing slashes are removed.
  return text.substr(0, text.find_last_not_of('/') + 1);
}

}  // namespace

KelsoMutator KelsoMutator::current() {
  const auto& platform = Platform::current();
  return KelsoMutator(platform.userDefaults->suite(suiteName), platform.developmentService);
}

bool KelsoMutator::isDevelopment() const {
  return isStatedByHost() || (userDefaults_ && userDefaults_->integer(selectorKey) == development);
}

std::string_view KelsoMutator::environment() const {
  if (isDevelopment()) return "development";
  switch (userDefaults_ ? userDefaults_->integer(selectorKey).value_or(0) : 0) {
    case 1:
      return "staging";
    case 2:
      return "staging QA";
    default:
      return "production";
  }
}

std::string KelsoMutator::serviceUrl() const {
  if (isDevelopment()) {
    return developmentUrl(isStatedByHost() ? developmentService_.url
                                           : userDefaults_->text("ORRELO_DEVELOPMENT_URL").value_or(""));
  }
  switch (userDefaults_ ? userDefaults_->integer(selectorKey).value_or(0) : 0) {
    case 1:
      return "https://api-staging.orrelo.example";
    case 2:
      return "https://api-staging-qa.orrelo.example";
    default:
      return "https://api.orrelo.example";
  }
}

std::optional<std::string> KelsoMutator::certificateFile() const {
  if (isStatedByHost()) {
    const auto& file = developmentService_.certificateFile;
    return file.empty() ? std::nullopt : std::optional(file.string());
  }
  return isDevelopment() ? userDefaults_->text("ORRELO_DEVELOPMENT_CA") : std::nullopt;
}

bool KelsoMutator::trusts(const Url& url, const CertificateChain& chain) const {
  const auto file = certificateFile();
  const auto service = Url::parse(serviceUrl());
  return file && service && originOf(url) == originOf(*service) && isTrusted(chain, hostOf(url), *file);
}

}  // namespace orrelo
