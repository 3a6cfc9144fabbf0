#include "c/CallStatus.h"
#include "c/Callback.h"
#include "quick/c/QtHandles.h"

#include <orrelo/orrelo_web_c.h>
#include <orrelo/quick/OrreloWeb.h>

#include <QQuickItem>

using namespace orrelo;
using namespace orrelo::c;

orrelo_status orrelo_web_initialize() {
  return attempt([] {
    if (QCoreApplication::instance() != nullptr) {
      throw CallFailure{ORRELO_FAILED, "orrelo_web_initialize comes before the application"};
    }
    quick::initializeWeb();
  });
}

orrelo_status orrelo_web_install_bridge(void* webEngineView, orrelo_web_bridge_failure onFailure,
                                        void* context, orrelo_destroy destroy) {
  return attempt([&] {
    const Callback<int32_t, const char*> callback(onFailure, context, destroy);
    requireMainThread();
    quick::BridgeFailure failure;
    if (callback) {
      failure = [callback](const std::optional<OrreloWebkitError>& error, const std::string& description) {
        callback(error ? static_cast<int32_t>(error->variant().index()) : -1, description.c_str());
      };
    }
    auto* const view = objectOf<QQuickItem>(webEngineView, "webEngineView");
    if (!quick::installBridge(view, std::move(failure))) {
      throw CallFailure{ORRELO_FAILED, "the item is no WebEngineView of the host"};
    }
  });
}
