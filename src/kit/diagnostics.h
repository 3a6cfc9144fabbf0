#pragma once

#include "network/KelsoMutator.h"

#include <orrelo/ORLConfig.h>
#include <orrelo/ORLDiagnostics.h>

namespace orrelo {

/// What `Orrelo::initialize` starts with.
ORLDiagnostics::Environment environmentOf(const ORLConfig& config, const KelsoMutator& mutator);

/// See Orrelo::diagnostics.
ORLDiagnostics takeDiagnostics(ORLDiagnostics::UserIdentity identity);

}  // namespace orrelo
