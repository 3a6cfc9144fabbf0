#pragma once

#include "support/Probe.h"
#include "support/VirtualTimeScheduler.h"

namespace orrelo::test {

/// The environment of an operator under test. The operator's own callback, if it has one, calls `callback`
/// first.
struct Setting {
  std::shared_ptr<VirtualTimeScheduler> scheduler = std::make_shared<VirtualTimeScheduler>();
  std::function<void()> callback = [] {};
};

using Start = std::function<void(NotesPtr)>;

struct OperatorCase {
  std::string name;
  std::function<Start(reactive::Observable<int>, const Setting&)> chain;
  /// The output when the source sends 1, 2, 3 and completes.
  Lines afterCompletion;
  /// The output when the source sends 1 and an error.
  Lines afterError;
  bool callsBack;
};

// NOLINTNEXTLINE(readability-identifier-naming): GoogleTest calls it by this name.
inline void PrintTo(const OperatorCase& operatorCase, std::ostream* stream) {
  *stream << operatorCase.name;
}

/// The operators that take a callback.
std::vector<OperatorCase> operatorsWithCallbacks();
std::vector<OperatorCase> everyOperator();

}  // namespace orrelo::test
