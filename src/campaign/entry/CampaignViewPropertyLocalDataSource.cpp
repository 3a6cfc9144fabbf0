#include "campaign/entry/CampaignViewPropertyLocalDataSource.h"

#include "base/Error.h"

#include <cstddef>

namespace orrelo {
namespace {

constexpr auto storedKey = "orrelo_floating_action_button";

}  // namespace

std::optional<FloatingActionButtonProperty> CampaignViewPropertyLocalDataSource::load() const {
  const auto stored = userDefaults_->data(storedKey);
  if (!stored) return std::nullopt;
  try {
    return FloatingActionButtonProperty::decode(
        {reinterpret_cast<const char*>(stored->data()), stored->size()});
  } catch (const Error&) {
    return std::nullopt;
  }
}

void CampaignViewPropertyLocalDataSource::save(const FloatingActionButtonProperty& property) const {
  const auto json = property.encode();
  const auto* const bytes = reinterpret_cast<const std::byte*>(json.data());
  userDefaults_->set(storedKey, DefaultsData(bytes, bytes + json.size()));
}

}  // namespace orrelo
