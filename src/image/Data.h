#pragma once

#include "base/Error.h"

#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <variant>

namespace orrelo {

/// Immutable shared bytes. Null means no data.
using Data = std::shared_ptr<const std::string>;

inline Data makeData(std::string bytes) {
  return std::make_shared<const std::string>(std::move(bytes));
}

/// The maximum size of an image file from any source, in bytes.
inline constexpr std::size_t maximumFileSize = std::size_t{16} * 1024 * 1024;

template <class T>
using Result = std::variant<T, Error>;

/// Converts bytes to values and back. Any thread.
template <class T>
class DataConvertible {
 public:
  virtual ~DataConvertible() = default;

  /// Completes with nullopt if the bytes are not a valid T. May complete before it returns or later on
  /// another thread.
  virtual void value(Data data, std::function<void(std::optional<T>)> completion) = 0;
  /// Returns null if the value cannot be encoded. May be slow.
  virtual Data data(const T& value) = 0;
};

}  // namespace orrelo
