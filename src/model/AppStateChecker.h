#pragma once

namespace orrelo {

/// Deliberately without fields and operations; nothing depends on it.
class AppStateChecker {};

}  // namespace orrelo
