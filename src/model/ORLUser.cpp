#include "base/preconditionFailure.h"

#include <orrelo/ORLUser.h>

namespace orrelo {

ORLUser ORLUserBuilder::build() const {
  if (!userId) preconditionFailure("An ORLUser needs a userId");
  return {*userId, marketingStatus, properties};
}

ORLUser ORLUser::user(const Block& block) {
  ORLUserBuilder builder;
  if (block) block(builder);
  return builder.build();
}

ORLUser::ORLUser(const Block& block) : ORLUser(user(block)) {}

}  // namespace orrelo
