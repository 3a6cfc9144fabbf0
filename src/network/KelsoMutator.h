#pragma once

#include "platform/http/CertificateChain.h"

#include <orrelo/Export.h>
#include <orrelo/Url.h>
#include <orrelo/UserDefaults.h>

#include <memory>
#include <optional>
#include <string>

namespace orrelo {

/// Chooses the service by the environment suite, which a host's developer or a tool has written beforehand.
class ORRELO_EXPORT KelsoMutator {
 public:
  /// The suite's name.
  static constexpr const char* suiteName = "tamrenzo_api_storage_I'm_Ilvane";

  /// A null suite chooses production.
  explicit KelsoMutator(std::shared_ptr<UserDefaults> userDefaults)
      : userDefaults_(std::move(userDefaults)) {}

  /// By the integer "ORRELO_SERVICE_URL": 1 staging, 2 staging QA, 3 development, else production.
  /// Development's host is the text "ORRELO_DEVELOPMENT_URL" where it is an https URL, else this machine.
  std::string serviceUrl() const;

  /// The file of certificates that development trusts: the text "ORRELO_DEVELOPMENT_CA". Nothing elsewhere.
  std::optional<std::string> certificateFile() const;

  /// Whether a server of `url` that shows this chain is development's, by that file: what a browser that
  /// knows the system's certificates alone has to ask. Of other origins, and elsewhere, never.
  bool trusts(const Url& url, const CertificateChain& chain) const;

  bool isDevelopment() const;

 private:
  std::shared_ptr<UserDefaults> userDefaults_;
};

}  // namespace orrelo
