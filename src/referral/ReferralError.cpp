#include "referral/ReferralError.h"

namespace orrelo {
namespace {

std::string textOf(const ReferralError::NotVerified& error) {
  return error.message;
}

std::string textOf(const ReferralError::NotAuthorized& error) {
  return error.message;
}

std::string textOf(ReferralError::Reason reason) {
  switch (reason) {
    case ReferralError::Reason::emptyCode:
      return "코드를 입력해주세요.";
    case ReferralError::Reason::isNotLoggedIn:
      return "로그인 후 다시 시도해주세요.";
    case ReferralError::Reason::network:
    case ReferralError::Reason::unknown:
      break;
  }
  return "잠시 후 다시 시도해주세요.";
}

}  // namespace

std::string ReferralError::toast() const {
  return std::visit([](const auto& each) { return textOf(each); }, value);
}

}  // namespace orrelo
