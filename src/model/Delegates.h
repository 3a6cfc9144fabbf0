#pragma once

#include <orrelo/Export.h>
#include <orrelo/ORLDelegates.h>

#include <memory>

namespace orrelo {

/// The host's delegates, held weakly; they can be set before `initialize`. Any thread.
std::shared_ptr<ORLUserEventDelegate> userEventDelegate();
void setUserEventDelegate(const std::shared_ptr<ORLUserEventDelegate>& delegate);

std::shared_ptr<ORLOptInMarketingCampaignDelegate> optInMarketingCampaignDelegate();
void setOptInMarketingCampaignDelegate(const std::shared_ptr<ORLOptInMarketingCampaignDelegate>& delegate);

/// What is called: the host's delegate, or while there is none the front's, which is held weakly too.
ORRELO_EXPORT std::shared_ptr<ORLUserEventDelegate> calledUserEventDelegate();
ORRELO_EXPORT void setUserEventDelegateOfFront(const std::shared_ptr<ORLUserEventDelegate>& delegate);

ORRELO_EXPORT std::shared_ptr<ORLOptInMarketingCampaignDelegate> calledOptInMarketingCampaignDelegate();
ORRELO_EXPORT void setOptInMarketingCampaignDelegateOfFront(
    const std::shared_ptr<ORLOptInMarketingCampaignDelegate>& delegate);

}  // namespace orrelo
