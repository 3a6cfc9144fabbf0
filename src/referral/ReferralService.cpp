#include "referral/ReferralService.h"

#include "reactive/Observable.h"
#include "referral/ReferralAuthorizationRequest.h"
#include "referral/ReferralAuthorizationResultDTO.h"
#include "referral/ReferralVerificationRequest.h"
#include "referral/ReferralVerificationResultDTO.h"

namespace orrelo {

reactive::Maybe<ReferralVerificationResult> ReferralServiceImpl::verify(const std::string& code,
                                                                        const std::string& userId) {
  using Result = ReferralVerificationResult;
  return post(ReferralVerificationRequest{code}.encode(), &Referral::verificationUrl, userId)
      .map([](const HTTPReply& reply) -> Result {
        const auto dto = ReferralVerificationResultDTO::decode(reply.data);
        if (dto.verified) return {Result::Verified()};
        return {Result::Error{dto.errorMessage.value_or("")}};
      });
}

reactive::Maybe<ReferralAuthorizationResult> ReferralServiceImpl::authorize(const std::string& code,
                                                                            const std::string& userId) {
  using Result = ReferralAuthorizationResult;
  return post(ReferralAuthorizationRequest{code}.encode(), &Referral::authorizationUrl, userId)
      .map([](const HTTPReply& reply) -> Result {
        const auto dto = ReferralAuthorizationResultDTO::decode(reply.data);
        const auto& reward = dto.rewardMessageDTO;
        if (dto.authorized) return {Result::Authorized{{reward.title, reward.body, reward.buttonText}}};
        return {Result::Error{dto.errorMessage.value_or("")}};
      });
}

// The service takes these two bodies without a "Content-Type".
reactive::Maybe<HTTPReply> ReferralServiceImpl::post(std::string body, std::string Referral::*path,
                                                     const std::string& userId) const {
  URLRequestBuilder builder(URLRequestBuilder::Method::post);
  builder.baseUrl = networkConfig_.baseUrl;
  builder.headers = withUser(networkConfig_.headers, userId);
  builder.body = std::move(body);
  return fetchReferralUseCase_->fetch(userId)
      .asObservable()
      .flatMap([builder, path, httpClient = httpClient_](const Referral& referral) {
        auto request = builder;
        request.path = referral.*path;
        return send(request, *httpClient);
      })
      .observeOn(scheduler_)
      .asMaybe();
}

}  // namespace orrelo
