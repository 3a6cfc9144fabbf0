#pragma once

#include "network/KelsoMutator.h"

#include <orrelo/ORLConfig.h>

namespace orrelo {

/// Explains what `Orrelo::initialize` starts with: versions, environment, service URL and folders; and what
/// of it can never work.
void explainStart(const ORLConfig& config, const KelsoMutator& mutator);

}  // namespace orrelo
