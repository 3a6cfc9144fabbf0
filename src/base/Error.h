#pragma once

#include <orrelo/Export.h>

#include <concepts>
#include <exception>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace orrelo {

/// An error as a value: streams carry it, decoders throw it. Two errors are equal if their domains and cases
/// are; the message is ignored.
class ORRELO_EXPORT Error : public std::exception {
 public:
  Error(std::string domain, std::string caseName, std::optional<std::string> message = {});

  const std::string& domain() const { return domain_; }
  const std::string& caseName() const { return caseName_; }
  const std::optional<std::string>& message() const { return message_; }

  /// The message, or "Domain.case" if there is none.
  const std::string& localizedDescription() const { return message_ ? *message_ : name_; }
  /// The form for log lines: "Domain.case", followed by the message in brackets if there is one.
  std::string description() const;

  const char* what() const noexcept override { return localizedDescription().c_str(); }

  /// Converts the exception being handled; call it only in a catch block.
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

/// Raised by stream steps that hold their owner weakly, after the owner was destroyed.
enum class ReferenceError { deallocated };
Error makeError(ReferenceError error);

/// Raised when JSON does not have the form of the record that it is decoded into.
enum class DecodingError { typeMismatch, valueNotFound, keyNotFound, dataCorrupted };
Error makeError(DecodingError error, std::string message);

}  // namespace orrelo
