#include "config/ConfigLocalDataSource.h"

#include "base/Error.h"

#include <cstddef>

namespace orrelo {
namespace {

constexpr auto storedKey = "ols_config";

}  // namespace

std::optional<Config> ConfigLocalDataSource::load() const {
  const auto stored = userDefaults_->data(storedKey);
  if (!stored) return std::nullopt;
  try {
    return Config::decode({reinterpret_cast<const char*>(stored->data()), stored->size()});
  } catch (const Error&) {
    return std::nullopt;
  }
}

void ConfigLocalDataSource::save(const Config& config) const {
  const auto json = config.encode();
  const auto* const bytes = reinterpret_cast<const std::byte*>(json.data());
  userDefaults_->set(storedKey, DefaultsData(bytes, bytes + json.size()));
}

}  // namespace orrelo
