#pragma once

#include <type_traits>
#include <utility>

namespace orrelo {

/// The argument of an `emplace` whose new element is the result of `make`. The result is constructed in its
/// place and, by g++, not moved there, which matters for records of many texts.
template <class Make>
class InPlace {
 public:
  explicit InPlace(Make make) : make_(std::move(make)) {}
  operator std::invoke_result_t<Make&>() { return make_(); }

 private:
  Make make_;
};

}  // namespace orrelo
