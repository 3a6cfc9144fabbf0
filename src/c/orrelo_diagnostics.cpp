#include "c/handles.h"

#include <orrelo/Orrelo.h>

#include <optional>

using namespace orrelo;
using namespace orrelo::c;

orrelo_value* orrelo_diagnostics(int32_t userIdentity) {
  using Identity = ORLDiagnostics::UserIdentity;
  return attemptNew([&] {
    std::optional<Identity> identity;
    if (userIdentity == ORRELO_USER_HASHED) identity = Identity::hashed;
    if (userIdentity == ORRELO_USER_PLAIN) identity = Identity::plain;
    return out(new EventValue(Orrelo::diagnostics(caseOf(identity, "userIdentity")).json()));
  });
}
