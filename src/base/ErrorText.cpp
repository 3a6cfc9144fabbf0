#include "base/ErrorText.h"

namespace orrelo {

std::string_view errorText(const Error& error) {
  if (error == makeError(OrreloError::emptyCampaigns)) return "진행 중인 캠페인이 없습니다.";
  if (error == makeError(OrreloError::notLoggedIn)) return "로그인 후 다시 시도해 주세요.";
  if (error == makeError(OrreloError::unknownCampaign)) return "앱을 업데이트 후 다시 시도해 주세요.";
  if (error == makeError(OrreloError::deprecatedCampaign)) return "더 이상 지원하지 않는 캠페인입니다.";
  return "잠시 후 다시 시도해 주세요.";
}

}  // namespace orrelo
