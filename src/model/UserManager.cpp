#include "model/UserManager.h"

#include <orrelo/Platform.h>

#include <atomic>
#include <cstdint>
#include <deque>
#include <mutex>
#include <utility>

namespace orrelo {
namespace {

constexpr auto storedKey = "orrelo_user_id";

struct CurrentUser {
  std::mutex mutex;
  std::optional<std::string> id;
  /// The number of changes of `id`.
  std::atomic<std::uint64_t> version = 0;
  /// Copies for threads that are ending; the process ends soon, too.
  std::deque<std::optional<std::string>> lateCopies;
};

/// True once the thread's copy is destroyed: a static object of the host may report an event even then.
thread_local bool isCopyGone = false;

struct CurrentUserCopy {
  std::optional<std::string> id;
  std::uint64_t version = 0;

  ~CurrentUserCopy() { isCopyGone = true; }
};

CurrentUser& currentUser() {
  static auto* const user = new CurrentUser;
  return *user;
}

}  // namespace

const std::optional<std::string>& currentUserId() {
  auto& user = currentUser();
  if (isCopyGone) {
    const std::lock_guard lock(user.mutex);
    return user.lateCopies.emplace_back(user.id);
  }
  // Called for every event, so each thread caches a copy and locks the mutex only after a change.
  thread_local CurrentUserCopy copy;
  if (copy.version != user.version.load(std::memory_order_acquire)) {
    const std::lock_guard lock(user.mutex);
    copy.id = user.id;
    copy.version = user.version;
  }
  return copy.id;
}

void setCurrentUserId(std::optional<std::string> userId) {
  auto& user = currentUser();
  const std::lock_guard lock(user.mutex);
  user.id = std::move(userId);
  ++user.version;
}

const reactive::PublishSubject<std::optional<std::string>>& userIdStream() {
  static const auto* const stream = new reactive::PublishSubject<std::optional<std::string>>;
  return *stream;
}

void UserManager::setUserId(const std::optional<std::string>& userId) const {
  userIdStream().onNext(userId);
  if (userId) Platform::current().userDefaults->standard()->set(storedKey, *userId);
}

std::optional<std::string> UserManager::storedUserId() {
  return Platform::current().userDefaults->standard()->text(storedKey);
}

}  // namespace orrelo
