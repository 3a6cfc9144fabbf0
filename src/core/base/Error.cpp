#include "core/base/Error.h"

#include <array>
#include <cstddef>

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
  static constexpr std::array names{
      "notInitialized",        "emptyCampaigns",     "notLoggedIn", "campaignNotExists", "unknownCampaign",
      "referenceDeallocation", "deprecatedCampaign", "infallible",  "network",           "unknown"};
  return Error("OrreloError", names.at(static_cast<std::size_t>(error)));
}

Error makeError(ReferenceError) {
  return Error("ReferenceError", "deallocated");
}

Error makeError(DecodingError error, std::string message) {
  static constexpr std::array names{"typeMismatch", "valueNotFound", "keyNotFound", "dataCorrupted"};
  return Error("DecodingError", names.at(static_cast<std::size_t>(error)), std::move(message));
}

}  // namespace orrelo
