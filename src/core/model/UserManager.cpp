#include "core/model/UserManager.h"

#include <orrelo/Platform.h>

#include <mutex>
#include <utility>

namespace orrelo {
namespace {

struct CurrentUser {
  std::mutex mutex;
  std::optional<std::string> id;
};

CurrentUser& currentUser() {
  static auto* const user = new CurrentUser;
  return *user;
}

}  // namespace

std::optional<std::string> currentUserId() {
  const std::lock_guard lock(currentUser().mutex);
  return currentUser().id;
}

void setCurrentUserId(std::optional<std::string> userId) {
  const std::lock_guard lock(currentUser().mutex);
  currentUser().id = std::move(userId);
}

const reactive::PublishSubject<std::optional<std::string>>& userIdStream() {
  static const auto* const stream = new reactive::PublishSubject<std::optional<std::string>>;
  return *stream;
}

void UserManager::setUserId(const std::optional<std::string>& userId) const {
  userIdStream().onNext(userId);
  if (userId) Platform::current().userDefaults->standard()->set("orrelo_user_id", *userId);
}

}  // namespace orrelo
