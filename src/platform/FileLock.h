#pragma once

#include <filesystem>

namespace orrelo {

/// Whether this process holds the lock that the file stands for; of several processes one does. Once it does,
/// it keeps the lock until it ends. Never waits. Any thread.
bool acquireFileLock(const std::filesystem::path& file);

}  // namespace orrelo
