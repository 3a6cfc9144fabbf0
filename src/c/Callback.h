#pragma once

#include "c/CallStatus.h"

#include <orrelo/orrelo_c.h>

#include <memory>
#include <string_view>

namespace orrelo::c {

/// A callback of the host with its context. Copies share the context, which the last one destroys.
template <class... Arguments>
class Callback {
 public:
  using Function = void (*)(void* context, Arguments...);

  Callback(Function function, void* context, orrelo_destroy destroy)
      : function_(function), context_(context, [destroy](void* held) {
          if (destroy != nullptr) destroy(held);
        }) {}

  explicit operator bool() const { return function_ != nullptr; }
  void require(std::string_view name) const { required(function_, name); }
  void operator()(Arguments... arguments) const { function_(context_.get(), arguments...); }

 private:
  Function function_;
  std::shared_ptr<void> context_;
};

}  // namespace orrelo::c
