#pragma once

#include "kit/OrreloComponent.h"

#include <memory>
#include <utility>

namespace orrelo {

/// The result of `Orrelo::initialize`: the component tree.
class InitializedOrrelo {
 public:
  explicit InitializedOrrelo(std::unique_ptr<OrreloComponent> orreloComponent)
      : component(std::move(orreloComponent)) {}

  /// The current instance; null until `makeCurrent`. All static functions may be called on any thread.
  static std::shared_ptr<InitializedOrrelo> current();
  /// Sets the current instance. The former one stops sending and is released.
  static void makeCurrent(std::shared_ptr<InitializedOrrelo> instance);

  const std::unique_ptr<OrreloComponent> component;
};

}  // namespace orrelo
