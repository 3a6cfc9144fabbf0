#pragma once

#include <orrelo/Error.h>

#include <string>

namespace orrelo {

enum class OrreloError {
  notInitialized,
  emptyCampaigns,
  notLoggedIn,
  campaignNotExists,
  unknownCampaign,
  referenceDeallocation,
  deprecatedCampaign,
  infallible,
  network,
  unknown
};
Error makeError(OrreloError error);

/// Raised by stream steps that hold their owner weakly, after the owner was destroyed.
enum class ReferenceError { deallocated };
Error makeError(ReferenceError error);

/// Raised when JSON does not have the form of the record that it is decoded into.
enum class DecodingError { typeMismatch, valueNotFound, keyNotFound, dataCorrupted };
Error makeError(DecodingError error, std::string message);

}  // namespace orrelo
