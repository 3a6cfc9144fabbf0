#pragma once

#include <orrelo/Export.h>

namespace orrelo {

/// The kit's log: silent until enabled, then one line a message on standard output:
/// "[OrreloSDK][LEVEL] date message". There is no threshold and no way to turn it off again.
class ORRELO_EXPORT ORLLogger {
 public:
  /// Any thread.
  static void enable();
};

}  // namespace orrelo
