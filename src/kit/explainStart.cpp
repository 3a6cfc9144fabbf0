#include "kit/explainStart.h"

#include "base/explain.h"

#include <orrelo/Platform.h>

#include <cerrno>
#include <filesystem>
#include <string>
#include <system_error>
#include <unistd.h>

namespace orrelo {
namespace {

std::string infoOf(const Bundle& bundle, std::string_view key) {
  return bundle.info(key).value_or("(none)");
}

void explainVersions(const ORLConfig& config, const Platform& platform) {
  const auto hostVersion = platform.mainBundle->info("CFBundleShortVersionString");
  explain(ExplanationLevel::info, [&] {
    return "OrreloSDK " + infoOf(*platform.kitBundle, "CFBundleShortVersionString") + ", build " +
           infoOf(*platform.kitBundle, "ORLBuildNumber") + ", is initialized by " +
           infoOf(*platform.mainBundle, "CFBundleIdentifier") + " " +
           (hostVersion ? *hostVersion + " " : "") + "with the application key \"" + config.appKey() + "\".";
  });
  if (!config.appKey().empty()) return;
  explain(
      ExplanationLevel::error,
      "The application key is empty, so that the service will refuse every request: pass the key that the "
      "service gave you to ORLConfig.");
}

void explainDevelopmentService(const DevelopmentService& service) {
  const auto url = Url::parse(service.url);
  if (service.url.empty() && !service.certificateFile.empty()) {
    explain(ExplanationLevel::error,
            "HostApplication::developmentService has a certificate file and no URL, so that it is ignored: "
            "name the service's URL.");
  } else if (!service.url.empty() && (!url || url->scheme() != "https" || url->host().empty())) {
    explain(ExplanationLevel::error, [&] {
      return "HostApplication::developmentService has \"" + service.url +
             "\", which is no https URL, so that https://localhost:9443 is used instead.";
    });
  }
}

void explainCertificates(const KelsoMutator& mutator) {
  const auto file = mutator.certificateFile();
  explain(ExplanationLevel::info, [&] {
    return "Certificates are verified with " + (file ? *file : std::string("those of this machine")) + ".";
  });
  if (!file || ::access(file->c_str(), R_OK) == 0) return;
  explain(ExplanationLevel::error, [&, why = errno] {
    return "The certificate file " + *file + " cannot be read (" + std::generic_category().message(why) +
           "), so that every request will fail: name the certificate.pem in the data folder of the "
           "development service.";
  });
}

void explainFolder(const Platform& platform) {
  const auto folder = platform.directories->data();
  explain(ExplanationLevel::info, [&] { return "The kit's files lie in " + folder.string() + "."; });
  if (::access(folder.c_str(), W_OK | X_OK) == 0) return;
  explain(ExplanationLevel::error, [&, why = errno] {
    return "The folder " + folder.string() + " cannot be written (" + std::generic_category().message(why) +
           "), so that events wait in memory alone: set HostApplication::dataDirectory.";
  });
}

}  // namespace

void explainStart(const ORLConfig& config, const KelsoMutator& mutator) {
  if (!isExplained(ExplanationLevel::error)) return;
  const auto& platform = Platform::current();
  explainVersions(config, platform);
  explain(ExplanationLevel::info, [&] {
    return "The service is " + mutator.serviceUrl() + ", the environment is " +
           std::string(mutator.environment()) + ".";
  });
  explainDevelopmentService(platform.developmentService);
  explainCertificates(mutator);
  explainFolder(platform);
}

}  // namespace orrelo
