#pragma once

#include <orrelo/orrelo_values_c.h>

#ifdef __cplusplus
extern "C" {
#endif

/** @file
   The kit for hosts in C, and for other languages that can call C functions. A C++ host uses `Orrelo.h`,
   where the operations are documented in full; here are the differences. `docs/c.md` has a complete host.

   Texts are UTF-8 and end with a zero byte. A malformed sequence becomes U+FFFD where the text is stored or
   sent. A pointer that may be NULL says so; NULL elsewhere is ORRELO_INVALID_ARGUMENT and changes nothing.

   Memory: what a `…_new`, `…_copy` or `…_from_…` function returns belongs to the caller, who frees it with
   the `…_free` function of its type. So do the screens that are returned as `orrelo_view_controller*`, and
   the value that `orrelo_diagnostics` returns. Texts and values that are passed are copied, unless the
   function says that it takes them. All other pointers that a function returns stay the kit's. Records are
   opaque, and so they can grow.

   Threads: any thread may call any function, but not the same handle on two threads at once; exceptions are
   stated. The main thread is that of the run loop, or that of the QGuiApplication.

   Errors: no C++ exception leaves a function. A function that can fail returns a status, or NULL in place of
   a new handle; `orrelo_last_error` says what was wrong. Faults of the network and of files are no errors of
   a call.

   Callbacks get the `context` that they were registered with. `destroy`, which may be NULL, is called with it
   once, when the callback will not be called any more, and also if the registration fails; this may happen on
   any thread. A callback must not let a C++ exception out. */

/** Frees what a callback needed. */
typedef void (*orrelo_destroy)(void* context);
/** Work that a host passes, with the `context` that it was passed with. */
typedef void (*orrelo_task)(void* context);

/** The version of the library that is loaded, such as "1.0.0". Static. */
ORRELO_EXPORT const char* orrelo_version(void);
/** Turns the log on: ORLLogger::enable. */
ORRELO_EXPORT void orrelo_logger_enable(void);

enum {
  ORRELO_EXPLANATION_ERROR = 1,
  ORRELO_EXPLANATION_WARNING = 2,
  ORRELO_EXPLANATION_INFO = 3,
  ORRELO_EXPLANATION_DEBUG = 4
};
/** `level` is one of ORRELO_EXPLANATION_…; `line` is valid during the call. */
typedef void (*orrelo_explanation_sink)(void* context, int32_t level, const char* line);
/** ORLExplanations::setSink: lines that say what failed, where, and what to do, of `level` and those that
   matter more. The sink is called on a thread of the kit. NULL ends them. */
ORRELO_EXPORT orrelo_status orrelo_explanations_set_sink(int32_t level, orrelo_explanation_sink sink,
                                                         void* context, orrelo_destroy destroy);

/* The host and its platform */

/** Describes the host: HostApplication. */
typedef struct orrelo_host_application orrelo_host_application;

/** `bundleIdentifier` may be NULL: the executable's name. */
ORRELO_EXPORT orrelo_host_application* orrelo_host_application_new(const char* bundleIdentifier);
/** NULL is allowed. */
ORRELO_EXPORT void orrelo_host_application_free(orrelo_host_application* host);
/** The versions of the application, which the service is told. None by default. */
ORRELO_EXPORT orrelo_status orrelo_host_application_set_version(orrelo_host_application* host,
                                                                const char* shortVersion,
                                                                const char* bundleVersion);
/** An absolute path in place of the default of HostApplication::dataDirectory. */
ORRELO_EXPORT orrelo_status orrelo_host_application_set_data_directory(orrelo_host_application* host,
                                                                       const char* path);
/** An absolute path in place of the default of HostApplication::cacheDirectory. */
ORRELO_EXPORT orrelo_status orrelo_host_application_set_cache_directory(orrelo_host_application* host,
                                                                        const char* path);
/** Adds a scheme of URLs that the machine or the host can open, besides "http" and "https". */
ORRELO_EXPORT orrelo_status orrelo_host_application_add_url_scheme(orrelo_host_application* host,
                                                                   const char* scheme);
/** This process uses the service at `url`, an https URL, and keeps its files apart. `certificateFile`, the
   certificates that are trusted there, may be NULL: those of the system. */
ORRELO_EXPORT orrelo_status orrelo_host_application_set_development_service(orrelo_host_application* host,
                                                                            const char* url,
                                                                            const char* certificateFile);

/** Platform::install with Platform::posix. Call it once, before `orrelo_initialize`. `host` may be NULL. */
ORRELO_EXPORT orrelo_status orrelo_install_posix_platform(const orrelo_host_application* host);

/* The main loop */

/** Queues `task` for the main thread. Never runs it before it returns. */
ORRELO_EXPORT orrelo_status orrelo_main_loop_post(orrelo_task task, void* context, orrelo_destroy destroy);
/** The same after a delay of at least 0; one of more than a year is a year. */
ORRELO_EXPORT orrelo_status orrelo_main_loop_post_after(int64_t milliseconds, orrelo_task task, void* context,
                                                        orrelo_destroy destroy);
/** True on the main thread. */
ORRELO_EXPORT bool orrelo_main_loop_is_current(void);

/** Runs RunLoop::main() on the calling thread until `orrelo_run_loop_stop`. Not for hosts with another loop,
   such as Qt's. What the kit posts to the main thread, timers that resend events included, runs only
   meanwhile. */
ORRELO_EXPORT orrelo_status orrelo_run_loop_run(void);
/** The same for at most this time; one of more than a year is a year. */
ORRELO_EXPORT orrelo_status orrelo_run_loop_run_for(int64_t milliseconds);
/** Makes the run loop return after the current task. Any thread. */
ORRELO_EXPORT void orrelo_run_loop_stop(void);

/* The kit */

/** The configuration: ORLConfig. */
typedef struct orrelo_config orrelo_config;

/** `appKey` is the key that the campaign service has given the application. NULL on failure. */
ORRELO_EXPORT orrelo_config* orrelo_config_new(const char* appKey);
/** NULL is allowed. */
ORRELO_EXPORT void orrelo_config_free(orrelo_config* config);
/** NULL for NULL. Valid until the configuration is freed. */
ORRELO_EXPORT const char* orrelo_config_get_app_key(const orrelo_config* config);

/** Orrelo::initialize. An application key that names no suite is ORRELO_INVALID_ARGUMENT and does not stop
 * the process. */
ORRELO_EXPORT orrelo_status orrelo_initialize(const orrelo_config* config);

/** The host's user: ORLUser. */
typedef struct orrelo_user orrelo_user;

enum { ORRELO_MARKETING_UNKNOWN = 0, ORRELO_MARKETING_OPT_IN = 1, ORRELO_MARKETING_OPT_OUT = 2 };

/** A user with this id of the host's own, and without properties. NULL on failure. */
ORRELO_EXPORT orrelo_user* orrelo_user_new(const char* userId);
/** NULL is allowed. */
ORRELO_EXPORT void orrelo_user_free(orrelo_user* user);
/** One of ORRELO_MARKETING_…; a new user has ORRELO_MARKETING_UNKNOWN. */
ORRELO_EXPORT orrelo_status orrelo_user_set_marketing_status(orrelo_user* user, int32_t status);
/** Copies `properties`, in place of former ones. */
ORRELO_EXPORT orrelo_status orrelo_user_set_properties(orrelo_user* user, const orrelo_values* properties);
/** NULL for NULL. Valid until the user is freed. */
ORRELO_EXPORT const char* orrelo_user_get_id(const orrelo_user* user);
/** -1 for NULL. */
ORRELO_EXPORT int32_t orrelo_user_get_marketing_status(const orrelo_user* user);
/** NULL for NULL. Valid until they are replaced or the user is freed. */
ORRELO_EXPORT const orrelo_values* orrelo_user_get_properties(const orrelo_user* user);

/** Orrelo::setUser. NULL means that nobody is signed in. ORRELO_UNSUPPORTED_VALUE leaves the current user
 * unchanged. */
ORRELO_EXPORT orrelo_status orrelo_set_user(const orrelo_user* user);

/** Orrelo::sendEvent. `values` may be NULL. ORRELO_UNSUPPORTED_VALUE and ORRELO_NOT_INITIALIZED report
 * nothing. */
ORRELO_EXPORT orrelo_status orrelo_send_event(const char* name, const orrelo_values* values);

/** Orrelo::flush. ORRELO_OK once the events are stored, else ORRELO_TIMED_OUT. */
ORRELO_EXPORT orrelo_status orrelo_flush(int64_t timeoutMilliseconds);
/** `isFlushed` is false if the time has run out first. */
typedef void (*orrelo_flush_completion)(void* context, bool isFlushed);
/** The same without waiting: calls `completion` once, on a thread of the kit. */
ORRELO_EXPORT orrelo_status orrelo_flush_async(int64_t timeoutMilliseconds,
                                               orrelo_flush_completion completion, void* context,
                                               orrelo_destroy destroy);

enum { ORRELO_USER_HASHED = 0, ORRELO_USER_PLAIN = 1 };
/** Orrelo::diagnostics as a JSON text, which ORLDiagnostics::json describes. `userIdentity` is one of
   ORRELO_USER_… The caller frees the value. */
ORRELO_EXPORT orrelo_value* orrelo_diagnostics(int32_t userIdentity);

/* Screens. A host gets the screen `with` from its front, as by `orrelo_quick_host_view_controller`. */

/** A screen. It stays alive while a handle to it or a window holds it. */
typedef struct orrelo_view_controller orrelo_view_controller;

enum {
  ORRELO_CAMPAIGN_ATTENDANCE = 0,
  ORRELO_CAMPAIGN_REFERRAL = 1,
  ORRELO_CAMPAIGN_OPT_IN_MARKETING = 2,
  ORRELO_CAMPAIGN_SCRATCH_LOTTERY = 3,
  ORRELO_CAMPAIGN_ROULETTE = 4
};

/** A further handle to the same screen. */
ORRELO_EXPORT orrelo_view_controller* orrelo_view_controller_copy(const orrelo_view_controller* screen);
/** NULL is allowed. Any thread; the screen itself ends on the main thread. */
ORRELO_EXPORT void orrelo_view_controller_free(orrelo_view_controller* screen);

/** Orrelo::showHome. This and the next functions return ORRELO_NOT_INITIALIZED before `orrelo_initialize`. */
ORRELO_EXPORT orrelo_status orrelo_show_home(const orrelo_view_controller* with);
/** Orrelo::showCampaign. */
ORRELO_EXPORT orrelo_status orrelo_show_campaign(const char* id, const orrelo_view_controller* with);
/** `type` is one of ORRELO_CAMPAIGN_… */
ORRELO_EXPORT orrelo_status orrelo_show_campaign_of_type(int32_t type, const orrelo_view_controller* with);
/** Orrelo::showNaverPayExchange. */
ORRELO_EXPORT orrelo_status orrelo_show_naver_pay_exchange(const orrelo_view_controller* with);
/** Orrelo::showPage. */
ORRELO_EXPORT orrelo_status orrelo_show_page(const char* id);
/** Orrelo::showInAppMessage. */
ORRELO_EXPORT orrelo_status orrelo_show_in_app_message(const orrelo_view_controller* with);

/* Main thread only: NULL with ORRELO_WRONG_THREAD elsewhere. Before `orrelo_initialize` the result is a
   screen that asks to try again. */

/** Orrelo::getHomeViewController. */
ORRELO_EXPORT orrelo_view_controller* orrelo_get_home_view_controller(void);
/** Orrelo::getCampaignViewController. */
ORRELO_EXPORT orrelo_view_controller* orrelo_get_campaign_view_controller(const char* id);
/** The same; `type` is one of ORRELO_CAMPAIGN_… */
ORRELO_EXPORT orrelo_view_controller* orrelo_get_campaign_view_controller_of_type(int32_t type);

/* Push */

/** Orrelo::setDeviceToken, with `size` bytes. */
ORRELO_EXPORT orrelo_status orrelo_set_device_token(const void* bytes, size_t size);
/** Orrelo::setPushToken. */
ORRELO_EXPORT orrelo_status orrelo_set_push_token(const char* token);

/** Orrelo::userNotificationCenter: the user tapped a notification. `completion`, which may be NULL, is called
   on the main thread if the notification is the kit's own; otherwise only `destroy` is. */
ORRELO_EXPORT orrelo_status orrelo_notification_tapped(const orrelo_values* userInfo, orrelo_task completion,
                                                       void* context, orrelo_destroy destroy);

enum { ORRELO_FETCH_NEW_DATA = 0, ORRELO_FETCH_NO_DATA = 1, ORRELO_FETCH_FAILED = 2 };
/** `result` is one of ORRELO_FETCH_… */
typedef void (*orrelo_fetch_completion)(void* context, int32_t result);
/** Orrelo::application: a notification arrived. Otherwise as above. */
ORRELO_EXPORT orrelo_status orrelo_notification_arrived(const orrelo_values* userInfo,
                                                        orrelo_fetch_completion completion, void* context,
                                                        orrelo_destroy destroy);

/* Delegates. The kit keeps a delegate until it is replaced; NULL removes it. */

/** An action of the user on one of the kit's screens. `values` may be NULL. Both are valid during the call.
 */
typedef void (*orrelo_user_event)(void* context, const char* name, const orrelo_values* values);
/** Called on the main thread. */
ORRELO_EXPORT orrelo_status orrelo_set_user_event_delegate(orrelo_user_event delegate, void* context,
                                                           orrelo_destroy destroy);
/** True if a delegate is set, in C or in C++. */
ORRELO_EXPORT bool orrelo_has_user_event_delegate(void);

/** The button of an opt-in marketing campaign was tapped on `screen`, which is valid during the call. */
typedef void (*orrelo_move_button_tapped)(void* context, const orrelo_view_controller* screen);
/** Called on the main thread. */
ORRELO_EXPORT orrelo_status orrelo_set_opt_in_marketing_campaign_delegate(orrelo_move_button_tapped delegate,
                                                                          void* context,
                                                                          orrelo_destroy destroy);
/** True if a delegate is set, in C or in C++. */
ORRELO_EXPORT bool orrelo_has_opt_in_marketing_campaign_delegate(void);

/* The host's own web pages: OrreloWebKit */

/** Why a message was not carried out. */
enum {
  ORRELO_WEB_KIT_BODY_IS_NOT_JSON = 0,
  ORRELO_WEB_KIT_REQUIRED_PARAMETER_NOT_SPECIFIED = 1,
  ORRELO_WEB_KIT_BODY_IS_NOT_SPECIFIED = 2,
  ORRELO_WEB_KIT_METHOD_NOT_SPECIFIED = 3,
  ORRELO_WEB_KIT_UNKNOWN_METHOD = 4
};

/** The name of the message handler that the host registers. Static. */
ORRELO_EXPORT const char* orrelo_web_kit_handler_name(void);
/** The script that the host injects into all frames of its pages, at the end of the document. Static. */
ORRELO_EXPORT const char* orrelo_web_kit_user_script_source(void);
/** Carries out a message of a page, whose body is a text. `with` may be NULL: then methods that show a screen
   show none. A message that cannot be carried out is ORRELO_INVALID_ARGUMENT, with one of ORRELO_WEB_KIT_… in
   `reason`, which may be NULL and is -1 otherwise. An event with a value that `orrelo_send_event` refuses is
   ORRELO_UNSUPPORTED_VALUE. A message of another handler is ignored. Before `orrelo_initialize` no event is
   reported and no screen is shown, and the result is ORRELO_OK. */
ORRELO_EXPORT orrelo_status orrelo_web_kit_handle(const orrelo_view_controller* with, const char* messageName,
                                                  const char* messageBody, int32_t* reason);

#ifdef __cplusplus
}
#endif
