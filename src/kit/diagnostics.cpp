#include "kit/diagnostics.h"

#include "base/Ascii.h"
#include "base/PageOmissions.h"
#include "events/EventIntake.h"
#include "events/KelsoInsight.h"
#include "image/ImagePipeline.h"
#include "kit/InitializedOrrelo.h"
#include "model/UserManager.h"
#include "network/RequestHistory.h"
#include "platform/posix/PosixBundle.h"
#include "platform/posix/SystemClock.h"
#include "platform/posix/processUsage.h"
#include "platform/threads/KitThread.h"

#include <orrelo/Platform.h>
#include <orrelo/platform/Clock.h>

#include <array>
#include <openssl/sha.h>
#include <string>

namespace orrelo {
namespace {

constexpr auto version = "CFBundleShortVersionString";
constexpr auto build = "ORLBuildNumber";

std::string entry(const Bundle& bundle, const char* key) {
  return bundle.info(key).value_or("");
}

/// The beginning of the SHA-256 of the id, with the device's id as the salt.
std::string hashed(const std::string& userId, const std::string& deviceId) {
  constexpr std::size_t length = 8;
  const auto salted = deviceId + ' ' + userId;
  std::array<unsigned char, SHA256_DIGEST_LENGTH> bytes{};
  SHA256(reinterpret_cast<const unsigned char*>(salted.data()), salted.size(), bytes.data());
  std::string text;
  for (std::size_t i = 0; i < length; ++i) ascii::appendHex(text, bytes[i]);
  return text;
}

ORLDiagnostics::Process process() {
  const auto usage = processUsage();
  return {kitThreadCount(), usage.threads, usage.residentBytes, ImagePipeline::sharedMemoryUse()};
}

/// Without the platform, which the host may install later.
ORLDiagnostics beforeInitialize() {
  ORLDiagnostics snapshot;
  snapshot.time = SystemClock().now();
  const auto kit = PosixBundle::kit();
  snapshot.environment.kitVersion = entry(*kit, version);
  snapshot.environment.kitBuild = entry(*kit, build);
  const auto usage = processUsage();
  snapshot.process.threads = usage.threads;
  snapshot.process.residentBytes = usage.residentBytes;
  return snapshot;
}

}  // namespace

ORLDiagnostics::Environment environmentOf(const ORLConfig& config, const KelsoMutator& mutator) {
  const auto& platform = Platform::current();
  return {
      .kitVersion = entry(*platform.kitBundle, version),
      .kitBuild = entry(*platform.kitBundle, build),
      .hostIdentifier = entry(*platform.mainBundle, "CFBundleIdentifier"),
      .hostVersion = entry(*platform.mainBundle, version),
      .systemVersion = platform.device->systemVersion(),
      .applicationKey = config.appKey(),
      .name = std::string(mutator.environment()),
      .serviceUrl = mutator.serviceUrl(),
      .certificateFile = mutator.certificateFile(),
      .dataDirectory = platform.directories->data().string(),
  };
}

ORLDiagnostics takeDiagnostics(ORLDiagnostics::UserIdentity identity) {
  auto& intake = EventIntake::shared();
  const auto orrelo = intake.isUsable() ? InitializedOrrelo::current() : nullptr;
  if (!orrelo) return beforeInitialize();
  const auto& component = *orrelo->component;

  ORLDiagnostics snapshot;
  snapshot.time = Platform::current().clock->now();
  snapshot.isInitialized = true;
  snapshot.environment = orrelo->environment;
  snapshot.configuration = component.configComponent().fetchConfigUseCase->status();
  snapshot.user = currentUserId();
  if (snapshot.user && identity == ORLDiagnostics::UserIdentity::hashed) {
    snapshot.user = hashed(*snapshot.user, orrelo->deviceId);
  }
  snapshot.events = intake.counts();
  snapshot.hostEvents = component.eventComponent().saveEventUseCase.status();
  if (const auto insight = KelsoInsight::instance()) snapshot.kitEvents = insight->status();
  snapshot.journal = intake.journalUsage();
  snapshot.requests = RequestHistory::lastRequests();
  snapshot.pages = PageOmissions::lastPages();
  if (component.inAppMessageComponent().navigator->skipTimeCheckService->hasSkippedToday()) {
    snapshot.skippedToday.emplace_back("in-app messages");
  }
  snapshot.process = process();
  return snapshot;
}

}  // namespace orrelo
