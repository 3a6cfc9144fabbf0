#pragma once

namespace orrelo {

/// Deliberately empty; no code depends on it.
class AppStateChecker {};

}  // namespace orrelo
