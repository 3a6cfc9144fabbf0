#include "c/handles.h"

#include <orrelo/OrreloWebKit.h>

#include <variant>

using namespace orrelo;
using namespace orrelo::c;

static_assert(
    std::is_same_v<std::variant_alternative_t<ORRELO_WEB_KIT_UNKNOWN_METHOD, OrreloWebkitError::Variant>,
                   OrreloWebkitError::UnknownMethod>);

const char* orrelo_web_kit_handler_name() {
  return OrreloWebKit::handlerName.data();
}

const char* orrelo_web_kit_user_script_source() {
  return OrreloWebKit::userScriptSource.data();
}

orrelo_status orrelo_web_kit_handle(const orrelo_view_controller* with, const char* messageName,
                                    const char* messageBody, int32_t* reason) {
  if (reason != nullptr) *reason = -1;
  return attempt([&] {
    const auto error = OrreloWebKit::handle(screenOf(with), required(messageName, "messageName"),
                                            EventValue(required(messageBody, "messageBody")));
    if (!error) return;
    if (reason != nullptr) *reason = static_cast<int32_t>(error->variant().index());
    throw CallFailure{ORRELO_INVALID_ARGUMENT, error->description()};
  });
}
