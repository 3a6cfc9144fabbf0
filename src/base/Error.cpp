#include "base/Error.h"

#include "base/EnumTexts.h"

namespace orrelo {

Error::Error(std::string domain, std::string caseName, std::optional<std::string> message)
    : domain_(std::move(domain)),
      caseName_(std::move(caseName)),
      name_(domain_ + "." + caseName_),
      message_(std::move(message)) {}

std::string Error::description() const {
  return message_ ? name_ + "(message: \"" + *message_ + "\")" : name_;
}

Error Error::fromCurrentException() {
  try {
    throw;
  } catch (const Error& error) {
    return error;
  } catch (const std::exception& exception) {
    return Error("Exception", "standard", exception.what());
  } catch (...) {
    return Error("Exception", "unknown");
  }
}

Error makeError(OrreloError error) {
  static constexpr EnumTexts<OrreloError, 10> names({
      {OrreloError::notInitialized, "notInitialized"},
      {OrreloError::emptyCampaigns, "emptyCampaigns"},
      {OrreloError::notLoggedIn, "notLoggedIn"},
      {OrreloError::campaignNotExists, "campaignNotExists"},
      {OrreloError::unknownCampaign, "unknownCampaign"},
      {OrreloError::referenceDeallocation, "referenceDeallocation"},
      {OrreloError::deprecatedCampaign, "deprecatedCampaign"},
      {OrreloError::infallible, "infallible"},
      {OrreloError::network, "network"},
      {OrreloError::unknown, "unknown"},
  });
  return Error("OrreloError", std::string(names.text(error)));
}

Error makeError(ReferenceError) {
  return Error("ReferenceError", "deallocated");
}

Error makeError(DecodingError error, std::string message) {
  static constexpr EnumTexts<DecodingError, 4> names({
      {DecodingError::typeMismatch, "typeMismatch"},
      {DecodingError::valueNotFound, "valueNotFound"},
      {DecodingError::keyNotFound, "keyNotFound"},
      {DecodingError::dataCorrupted, "dataCorrupted"},
  });
  return Error("DecodingError", std::string(names.text(error)), std::move(message));
}

}  // namespace orrelo
