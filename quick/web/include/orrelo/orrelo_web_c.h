#pragma once

#include <orrelo/orrelo_c.h>

#ifdef __cplusplus
extern "C" {
#endif

/* Web pages for hosts in C: a part of the library orrelo::web. A C++ host uses `orrelo/quick/OrreloWeb.h`.
   The rules of `orrelo_quick_c.h` apply. */

/** orrelo::quick::initializeWeb: enables web pages within the kit's pages. Call it once, before the
   application is created; ORRELO_FAILED afterwards. */
ORRELO_EXPORT orrelo_status orrelo_web_initialize(void);

/** A page's message was not carried out. `reason` is one of ORRELO_WEB_KIT_…, or -1 if an event held a value
   of an unsupported type. `description` is valid during the call. */
typedef void (*orrelo_web_bridge_failure)(void* context, int32_t reason, const char* description);
/** orrelo::quick::installBridge: lets the pages in one of the host's WebEngineViews, a QQuickItem, call the
   kit. `onFailure` may be NULL. ORRELO_FAILED if the item cannot have the bridge. */
ORRELO_EXPORT orrelo_status orrelo_web_install_bridge(void* webEngineView,
                                                      orrelo_web_bridge_failure onFailure, void* context,
                                                      orrelo_destroy destroy);

#ifdef __cplusplus
}
#endif
