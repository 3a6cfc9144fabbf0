#pragma once

#include "network/HTTPClient.h"
#include "network/NetworkConfig.h"
#include "reactive/Scheduler.h"
#include "reactive/Traits.h"
#include "referral/FetchReferralUseCase.h"
#include "referral/ReferralAuthorizationResult.h"
#include "referral/ReferralVerificationResult.h"

#include <memory>
#include <string>
#include <utility>

namespace orrelo {

/// The two steps in which a user enters a friend's code. The streams are cold and emit one result; they
/// complete empty if the user has no referral campaign, and fail with the error of the network, the service
/// or the decoding. Any thread.
class ReferralService {
 public:
  virtual ~ReferralService() = default;

  virtual reactive::Maybe<ReferralVerificationResult> verify(const std::string& code,
                                                             const std::string& userId) = 0;
  virtual reactive::Maybe<ReferralAuthorizationResult> authorize(const std::string& code,
                                                                 const std::string& userId) = 0;
};

/// Posts the code to the paths of the campaign. A path that makes no URL is an error of the request. Replies
/// are decoded on `scheduler`, not on the network's thread.
class ReferralServiceImpl final : public ReferralService {
 public:
  ReferralServiceImpl(NetworkConfig networkConfig, std::shared_ptr<FetchReferralUseCase> fetchReferralUseCase,
                      std::shared_ptr<HTTPClient> httpClient, reactive::SchedulerPtr scheduler)
      : networkConfig_(std::move(networkConfig)),
        fetchReferralUseCase_(std::move(fetchReferralUseCase)),
        httpClient_(std::move(httpClient)),
        scheduler_(std::move(scheduler)) {}

  reactive::Maybe<ReferralVerificationResult> verify(const std::string& code,
                                                     const std::string& userId) override;
  reactive::Maybe<ReferralAuthorizationResult> authorize(const std::string& code,
                                                         const std::string& userId) override;

 private:
  /// Posts the body to the path that `path` names in the user's referral.
  reactive::Maybe<HTTPReply> post(std::string body, std::string Referral::*path,
                                  const std::string& userId) const;

  NetworkConfig networkConfig_;
  std::shared_ptr<FetchReferralUseCase> fetchReferralUseCase_;
  std::shared_ptr<HTTPClient> httpClient_;
  reactive::SchedulerPtr scheduler_;
};

}  // namespace orrelo
