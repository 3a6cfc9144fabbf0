#pragma once

#include "base/Error.h"

#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <variant>

namespace orrelo {

/// Bytes that nobody changes, shared. Null is no data.
using Data = std::shared_ptr<const std::string>;

inline Data makeData(std::string bytes) {
  return std::make_shared<const std::string>(std::move(bytes));
}

/// Of a picture's file, from wherever it comes.
inline constexpr std::size_t maximumFileSize = std::size_t{16} * 1024 * 1024;

template <class T>
using Result = std::variant<T, Error>;

/// Makes values from bytes and bytes from values. Any thread.
template <class T>
class DataConvertible {
 public:
  virtual ~DataConvertible() = default;

  /// Nothing where the bytes are no T. May complete before it returns, or later on a thread of its own.
  virtual void value(Data data, std::function<void(std::optional<T>)> completion) = 0;
  /// Null where the value has no form in bytes. May take its time.
  virtual Data data(const T& value) = 0;
};

}  // namespace orrelo
