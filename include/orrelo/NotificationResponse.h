#pragma once

#include <orrelo/EventValue.h>

namespace orrelo {

/// A notification that the user tapped, as the platform hands it to the host.
struct NotificationResponse {
  EventDictionary userInfo;
};

}  // namespace orrelo
