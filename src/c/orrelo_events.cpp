#include "c/Callback.h"
#include "c/handles.h"

#include <orrelo/Orrelo.h>

#include <utility>

using namespace orrelo;
using namespace orrelo::c;

orrelo_config* orrelo_config_new(const char* appKey) {
  return attemptNew([&] { return new orrelo_config{ORLConfig(required(appKey, "appKey"))}; });
}

void orrelo_config_free(orrelo_config* config) {
  delete config;
}

const char* orrelo_config_get_app_key(const orrelo_config* config) {
  return config == nullptr ? nullptr : config->config.appKey().c_str();
}

orrelo_status orrelo_initialize(const orrelo_config* config) {
  return attempt([&] {
    const auto& known = required(config, "config")->config;
    // Orrelo::initialize would stop the process.
    if (!Platform::current().userDefaults->suite(known.appKey())) {
      throw CallFailure{ORRELO_INVALID_ARGUMENT,
                        "the application key \"" + known.appKey() + "\" is a reserved name"};
    }
    Orrelo::initialize(known);
  });
}

orrelo_user* orrelo_user_new(const char* userId) {
  return attemptNew([&] { return new orrelo_user{required(userId, "userId"), {}, {}}; });
}

void orrelo_user_free(orrelo_user* user) {
  delete user;
}

orrelo_status orrelo_user_set_marketing_status(orrelo_user* user, int32_t status) {
  return attempt(
      [&] { required(user, "user")->marketingStatus = caseOf(marketingStatus(status), "status"); });
}

orrelo_status orrelo_user_set_properties(orrelo_user* user, const orrelo_values* properties) {
  return attempt([&] { required(user, "user")->properties = *in(required(properties, "properties")); });
}

const char* orrelo_user_get_id(const orrelo_user* user) {
  return user == nullptr ? nullptr : user->id.c_str();
}

int32_t orrelo_user_get_marketing_status(const orrelo_user* user) {
  return user == nullptr ? -1 : static_cast<int32_t>(user->marketingStatus);
}

const orrelo_values* orrelo_user_get_properties(const orrelo_user* user) {
  return user == nullptr ? nullptr : out(&user->properties);
}

orrelo_status orrelo_set_user(const orrelo_user* user) {
  return attempt([&] {
    if (user == nullptr) return Orrelo::setUser(std::nullopt);
    Orrelo::setUser(ORLUser(user->id, user->marketingStatus, user->properties));
  });
}

orrelo_status orrelo_send_event(const char* name, const orrelo_values* values) {
  return attempt([&] {
    Orrelo::sendEvent(required(name, "name"), values == nullptr ? EventValues() : *in(values));
    requireInitialized();
  });
}

orrelo_status orrelo_flush(int64_t timeoutMilliseconds) {
  return attempt([&] {
    if (Orrelo::flush(durationOf(timeoutMilliseconds))) return;
    throw CallFailure{ORRELO_TIMED_OUT, "the events are not stored yet"};
  });
}

orrelo_status orrelo_flush_async(int64_t timeoutMilliseconds, orrelo_flush_completion completion,
                                 void* context, orrelo_destroy destroy) {
  return attempt([&] {
    Callback<bool> callback(completion, context, destroy);
    callback.require("completion");
    Orrelo::flush(durationOf(timeoutMilliseconds), std::move(callback));
  });
}
