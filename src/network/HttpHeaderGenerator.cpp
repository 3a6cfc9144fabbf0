#include "network/HttpHeaderGenerator.h"

#include <orrelo/Platform.h>
#include <orrelo/platform/Random.h>

namespace orrelo {

std::string HttpHeaderGenerator::deviceId() const {
  constexpr auto key = "orl_user_default_key_kelso_uuid";
  if (auto stored = userDefaults_->text(key)) return *stored;
  return userDefaults_->textOrInsert(key, Platform::current().random->uuid().text());
}

HTTPHeaders HttpHeaderGenerator::generate() const {
  const auto& platform = Platform::current();
  HTTPHeaders headers;
  headers["Kelso-UUID"] = deviceId();
  if (const auto version = platform.kitBundle->info("CFBundleShortVersionString"))
    headers["sdk_version"] = *version;
  if (const auto number = platform.kitBundle->info("ORLBuildNumber")) headers["sdk_build_number"] = *number;
  headers["os_version"] = platform.device->systemVersion();
  headers["locale"] = platform.device->localeIdentifier();
  headers["timezone"] = platform.device->timeZoneIdentifier();
  if (!platform.mainBundle->hasInfoDictionary()) return headers;

  // The service expects the bundle identifier under this name.
  headers["app_name"] = platform.mainBundle->info("CFBundleIdentifier").value_or("");
  headers["app_version"] = platform.mainBundle->info("CFBundleShortVersionString").value_or("");
  headers["app_version_code"] = platform.mainBundle->info("CFBundleVersion").value_or("");
  return headers;
}

}  // namespace orrelo
