#include "c/Callback.h"
#include "c/handles.h"

#include <orrelo/Orrelo.h>

#include <utility>
#include <vector>

using namespace orrelo;
using namespace orrelo::c;

static_assert(static_cast<int>(BackgroundFetchResult::newData) == ORRELO_FETCH_NEW_DATA &&
              static_cast<int>(BackgroundFetchResult::noData) == ORRELO_FETCH_NO_DATA &&
              static_cast<int>(BackgroundFetchResult::failed) == ORRELO_FETCH_FAILED);

orrelo_status orrelo_set_device_token(const void* bytes, size_t size) {
  return attempt([&] {
    const auto* const first = static_cast<const std::byte*>(required(bytes, "bytes"));
    Orrelo::setDeviceToken(std::vector<std::byte>(first, first + size));
    requireInitialized();
  });
}

orrelo_status orrelo_set_push_token(const char* token) {
  return attempt([&] {
    Orrelo::setPushToken(required(token, "token"));
    requireInitialized();
  });
}

orrelo_status orrelo_notification_tapped(const orrelo_values* userInfo, orrelo_task completion, void* context,
                                         orrelo_destroy destroy) {
  return attempt([&] {
    const Callback<> callback(completion, context, destroy);
    std::function<void()> done;
    if (callback) done = callback;
    Orrelo::userNotificationCenter({*in(required(userInfo, "userInfo"))}, std::move(done));
    requireInitialized();
  });
}

orrelo_status orrelo_notification_arrived(const orrelo_values* userInfo, orrelo_fetch_completion completion,
                                          void* context, orrelo_destroy destroy) {
  return attempt([&] {
    const Callback<int32_t> callback(completion, context, destroy);
    IOrrelo::FetchCompletion done;
    if (callback) {
      done = [callback](BackgroundFetchResult result) { callback(static_cast<int32_t>(result)); };
    }
    Orrelo::application(*in(required(userInfo, "userInfo")), std::move(done));
    requireInitialized();
  });
}
