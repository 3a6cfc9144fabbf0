#pragma once

#include <orrelo/Export.h>

#include <stdexcept>
#include <string>

namespace orrelo {

/// The one exception that leaves the kit: an event holds a value of a type that cannot be sent.
class ORRELO_EXPORT UnsupportedEventValueException : public std::invalid_argument {
 public:
  explicit UnsupportedEventValueException(const std::string& typeName);

  /// "Not supported class"
  const std::string& name() const { return name_; }
  /// The type's name, then " is not supported class".
  std::string reason() const { return what(); }

 private:
  std::string name_;
};

}  // namespace orrelo
