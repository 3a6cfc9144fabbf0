#pragma once

#include <orrelo/Export.h>

namespace orrelo {

/// The kit's log of a fixed set of lines; ORLExplanations says why something does not work. It is silent
/// until enabled, then writes one line per message to standard output:
/// "[OrreloSDK][LEVEL] date message". There is no level threshold, and the log cannot be disabled again.
class ORRELO_EXPORT ORLLogger {
 public:
  /// Any thread.
  static void enable();
};

}  // namespace orrelo
