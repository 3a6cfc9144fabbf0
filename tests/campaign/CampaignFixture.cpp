#include "CampaignFixture.h"

namespace orrelo::test {
namespace {

constexpr auto key = "orrelo_live_campaign_state_array";

}  // namespace

CampaignFixture::CampaignFixture()
    : client_(std::make_shared<HTTPClientImpl>()),
      repository_(std::make_shared<CampaignRepositoryImpl>(
          CampaignRemoteDataSource(networkConfig_, client_, scheduler()), CampaignLocalDataSource(suite_))),
      participate_(std::make_shared<ParticipateCampaignUseCaseImpl>(networkConfig_, client_, scheduler())) {}

CampaignFixture::~CampaignFixture() = default;

void CampaignFixture::store(const std::string& json) {
  const auto* const bytes = reinterpret_cast<const std::byte*>(json.data());
  suite_->set(key, DefaultsData(bytes, bytes + json.size()));
}

std::string CampaignFixture::stored() const {
  const auto data = suite_->data(key);
  return data ? std::string(reinterpret_cast<const char*>(data->data()), data->size()) : "(nothing)";
}

}  // namespace orrelo::test
