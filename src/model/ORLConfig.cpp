#include "base/preconditionFailure.h"

#include <orrelo/ORLConfig.h>

namespace orrelo {

ORLConfig ORLConfigBuilder::build() const {
  if (!appKey) preconditionFailure("An ORLConfig needs an appKey");
  return ORLConfig(*appKey);
}

ORLConfig ORLConfig::config(const Block& block) {
  ORLConfigBuilder builder;
  if (block) block(builder);
  return builder.build();
}

ORLConfig::ORLConfig(const Block& block) : ORLConfig(config(block)) {}

}  // namespace orrelo
