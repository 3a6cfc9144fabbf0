#pragma once

#include "platform/store/WriterQueue.h"

#include <orrelo/Platform.h>
#include <orrelo/platform/Clock.h>
#include <orrelo/platform/EventDatabase.h>

#include <map>
#include <memory>
#include <mutex>
#include <string>
#include <string_view>

namespace orrelo {

/// Event stores in SQLite files. All stores share one executor, by default the thread of this process.
class SqliteEventDatabaseFactory final : public EventDatabaseFactory {
 public:
  SqliteEventDatabaseFactory(std::shared_ptr<Directories> directories, std::shared_ptr<Clock> clock,
                             std::shared_ptr<SerialExecutor> executor = WriterQueue::shared());

  std::shared_ptr<EventDatabase> open(std::string_view name, EventTimeStorage timeStorage) override;

 private:
  std::shared_ptr<Directories> directories_;
  std::shared_ptr<Clock> clock_;
  std::shared_ptr<SerialExecutor> executor_;
  std::mutex mutex_;
  std::map<std::string, std::shared_ptr<EventDatabase>, std::less<>> stores_;
};

}  // namespace orrelo
