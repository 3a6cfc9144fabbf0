#pragma once

#include <memory>

namespace orrelo {
class MainLoop;
class WorkerPool;
}  // namespace orrelo

namespace orrelo::quick {

/// The threads for the preparation of the first screen.
struct WarmUpThreads {
  std::shared_ptr<MainLoop> mainLoop;
  std::shared_ptr<WorkerPool> workers;
};

/// `platform` sets them.
void setWarmUpThreads(WarmUpThreads threads);
/// Null members before `platform`, and if the host has switched the preparation off by `setWarmUpEnabled` or
/// by ORRELO_WARM_UP=0 in the environment. GUI thread.
WarmUpThreads warmUpThreads();

}  // namespace orrelo::quick
