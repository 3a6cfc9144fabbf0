#pragma once

#include <orrelo/Export.h>

#include <cstdint>

namespace orrelo {

/// Changes in a forked child, so that state that belongs to one process can be recognised as its parent's.
/// It also recognises forks that run no handlers. Any thread; one load from memory after the first call.
std::uint64_t processGeneration();

/// True in a child that was forked after the first call of `processGeneration` and has not replaced its
/// program. The kit's threads do not exist in it, and a lock that another thread held at the fork stays
/// locked.
bool isForkedChild();

}  // namespace orrelo
