#pragma once

#include "reactive/Subjects.h"

#include <optional>
#include <string>

namespace orrelo {

/// The id of the user last passed to `Orrelo::setUser` in this process; absent before that and after a
/// sign-out. The reference is to a copy of the calling thread and is valid until its next call. Any thread.
const std::optional<std::string>& currentUserId();
void setCurrentUserId(std::optional<std::string> userId);

/// Emits the user id at each change; does not replay it to new subscribers.
const reactive::PublishSubject<std::optional<std::string>>& userIdStream();

/// Changes the user id; all instances share the process-wide state above.
class UserManager {
 public:
  /// Publishes the id and stores it in the standard defaults under "orrelo_user_id". An absent id is only
  /// published: the stored id deliberately survives a sign-out.
  void setUserId(const std::optional<std::string>& userId) const;
  /// The stored id: that of the last user who was ever set, in this process or an earlier one.
  static std::optional<std::string> storedUserId();
};

}  // namespace orrelo
