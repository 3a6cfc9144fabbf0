#pragma once

#include <orrelo/Export.h>

#include <concepts>
#include <exception>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace orrelo {

/// What went wrong, as a value: streams carry it, decoders throw it. Compared by domain and case alone.
class ORRELO_EXPORT Error : public std::exception {
 public:
  Error(std::string domain, std::string caseName, std::optional<std::string> message = {});

  const std::string& domain() const { return domain_; }
  const std::string& caseName() const { return caseName_; }
  const std::optional<std::string>& message() const { return message_; }

  /// The message, else "Domain.case".
  const std::string& localizedDescription() const { return message_ ? *message_ : name_; }
  /// For log lines: "Domain.case", with the message in brackets where there is one.
  std::string description() const;

  const char* what() const noexcept override { return localizedDescription().c_str(); }

  /// The error for the exception being handled; call it in a catch block only.
  static Error fromCurrentException();

  friend bool operator==(const Error& a, const Error& b) {
    return a.domain_ == b.domain_ && a.caseName_ == b.caseName_;
  }

 private:
  std::string domain_;
  std::string caseName_;
  std::string name_;
  std::optional<std::string> message_;
};

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

/// Raised by stream steps that hold their owner weakly, when the owner is gone.
enum class ReferenceError { deallocated };
Error makeError(ReferenceError error);

/// Raised while JSON is read into a record.
enum class DecodingError { typeMismatch, valueNotFound, keyNotFound, dataCorrupted };
Error makeError(DecodingError error, std::string message);

}  // namespace orrelo
