#pragma once

#include "platform/http/CertificateChain.h"

#include <orrelo/Export.h>
#include <orrelo/Platform.h>
#include <orrelo/Url.h>
#include <orrelo/UserDefaults.h>

#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace orrelo {

/// Selects the service's environment: the development service that the host names, or else the one that a
/// suite of user defaults names, which a developer or a tool writes.
class ORRELO_EXPORT KelsoMutator {
 public:
  /// The name of that suite.
  static constexpr const char* suiteName = "tamrenzo_api_storage_I'm_Ilvane";

  /// A null suite selects production.
  explicit KelsoMutator(std::shared_ptr<UserDefaults> userDefaults,
                        DevelopmentService developmentService = {})
      : userDefaults_(std::move(userDefaults)), developmentService_(std::move(developmentService)) {}

  /// The environment of the current platform.
  static KelsoMutator current();

  /// The service's URL. The integer "ORRELO_SERVICE_URL" selects staging (1), staging QA (2), development
  /// (3), or production otherwise. For development it is the text "ORRELO_DEVELOPMENT_URL" if that is an
  /// https URL, otherwise a URL on this machine.
  std::string serviceUrl() const;

  /// The certificate file for development, the host's or the text "ORRELO_DEVELOPMENT_CA"; nullopt otherwise.
  std::optional<std::string> certificateFile() const;

  /// True if `url` is on the development service and the certificates of `certificateFile` verify this chain.
  /// Browsers use it, since they know only the system's certificates. False for other origins and
  /// environments.
  bool trusts(const Url& url, const CertificateChain& chain) const;

  bool isDevelopment() const;
  /// "production", "staging", "staging QA" or "development".
  std::string_view environment() const;

 private:
  bool isStatedByHost() const { return !developmentService_.url.empty(); }

  std::shared_ptr<UserDefaults> userDefaults_;
  DevelopmentService developmentService_;
};

}  // namespace orrelo
