#pragma once

#include <orrelo/Export.h>

#include <stdexcept>
#include <string>

namespace orrelo {

/// The only exception that the kit throws: an event holds a value of an unsupported type.
class ORRELO_EXPORT UnsupportedEventValueException : public std::invalid_argument {
 public:
  explicit UnsupportedEventValueException(const std::string& typeName);

  /// Always "Not supported class".
  const std::string& name() const { return name_; }
  /// "<type name> is not supported class".
  std::string reason() const { return what(); }

 private:
  std::string name_;
};

}  // namespace orrelo
