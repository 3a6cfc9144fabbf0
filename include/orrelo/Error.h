#pragma once

#include <orrelo/Export.h>

#include <concepts>
#include <exception>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace orrelo {

/// An error as a value: a completion gets it, or an exception carries it within the kit. Two errors are equal
/// if their domains and cases are; the message is ignored.
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

}  // namespace orrelo
