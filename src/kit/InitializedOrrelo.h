#pragma once

#include "kit/OrreloComponent.h"

#include <orrelo/ORLDiagnostics.h>

#include <memory>
#include <string>
#include <utility>

namespace orrelo {

/// The result of `Orrelo::initialize`: the component tree, and what it started with.
class InitializedOrrelo {
 public:
  InitializedOrrelo(std::unique_ptr<OrreloComponent> orreloComponent,
                    ORLDiagnostics::Environment startEnvironment, std::string installationId)
      : component(std::move(orreloComponent)),
        environment(std::move(startEnvironment)),
        deviceId(std::move(installationId)) {}

  /// The current instance; null until `makeCurrent`. All static functions may be called on any thread.
  static std::shared_ptr<InitializedOrrelo> current();
  /// Sets the current instance. The former one stops sending and is released.
  static void makeCurrent(std::shared_ptr<InitializedOrrelo> instance);

  const std::unique_ptr<OrreloComponent> component;
  const ORLDiagnostics::Environment environment;
  const std::string deviceId;
};

}  // namespace orrelo
