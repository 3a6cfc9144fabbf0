#include "c/handles.h"

#include <orrelo/Orrelo.h>

#include <memory>

using namespace orrelo;
using namespace orrelo::c;

orrelo_value* orrelo_diagnostics(int32_t userIdentity) {
  using Identity = ORLDiagnostics::UserIdentity;
  return attemptNew([&] {
    if (userIdentity != ORRELO_USER_HASHED && userIdentity != ORRELO_USER_PLAIN) {
      throw CallFailure{ORRELO_INVALID_ARGUMENT, "userIdentity is out of range"};
    }
    const auto identity = userIdentity == ORRELO_USER_PLAIN ? Identity::plain : Identity::hashed;
    return out(new EventValue(Orrelo::diagnostics(identity).json()));
  });
}
