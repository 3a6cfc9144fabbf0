#pragma once

#include "platform/store/WriterQueue.h"

#include <orrelo/Platform.h>
#include <orrelo/platform/Clock.h>
#include <orrelo/platform/Random.h>
#include <orrelo/platform/WorkerPool.h>

#include <memory>

namespace orrelo {

/// What a journal uses of the machine.
struct JournalEnvironment {
  std::shared_ptr<Directories> directories;
  std::shared_ptr<Clock> clock;
  std::shared_ptr<Random> random;
  /// The stores' thread. It takes the locks, writes what is released, and makes new files.
  std::shared_ptr<SerialExecutor> executor;
  /// New files are taken into use on its threads.
  std::shared_ptr<WorkerPool> workers;
};

}  // namespace orrelo
