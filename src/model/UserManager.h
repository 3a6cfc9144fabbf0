#pragma once

#include "reactive/Subjects.h"

#include <optional>
#include <string>

namespace orrelo {

/// The user of the last `Orrelo::setUser` in this process; absent at first and after a sign-out. Any thread.
/// The text is the calling thread's, and stays as it is until that thread asks again.
const std::optional<std::string>& currentUserId();
void setCurrentUserId(std::optional<std::string> userId);

/// Says each time who the user is now. It has no memory.
const reactive::PublishSubject<std::optional<std::string>>& userIdStream();

/// Owner of the process-wide facts above; all its instances share them.
class UserManager {
 public:
  /// Publishes the id and keeps it in the standard defaults under "orrelo_user_id". An absent id is published
  /// only: the stored one outlives a sign-out by design.
  void setUserId(const std::optional<std::string>& userId) const;
};

}  // namespace orrelo
