#pragma once

#include <orrelo/ORLDelegates.h>

#include <memory>

namespace orrelo {

/// The host's delegates, held weakly; they can be set before `initialize`. Any thread.
std::shared_ptr<ORLUserEventDelegate> userEventDelegate();
void setUserEventDelegate(const std::shared_ptr<ORLUserEventDelegate>& delegate);

std::shared_ptr<ORLOptInMarketingCampaignDelegate> optInMarketingCampaignDelegate();
void setOptInMarketingCampaignDelegate(const std::shared_ptr<ORLOptInMarketingCampaignDelegate>& delegate);

}  // namespace orrelo
