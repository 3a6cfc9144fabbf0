#pragma once

#include <orrelo/orrelo_c.h>

#ifdef __cplusplus
extern "C" {
#endif

/* The kit's screens for hosts in C, and for other languages that can call C functions: a part of the library
   orrelo::quick. A C++ host uses `orrelo/quick/OrreloQuick.h`. The rules of `orrelo_c.h` apply, except that
   all functions belong to the main thread; on any other they return ORRELO_WRONG_THREAD or NULL, and change
   nothing.

   Windows and items are passed as pointers to Qt's QQuickWindow and QQuickItem; NULL, and a QObject of
   another class, is ORRELO_INVALID_ARGUMENT. They stay Qt's own: a pointer is valid until its object is
   destroyed. */

/* An application. A host that has a QGuiApplication of its own, in C++ or in another binding of Qt, needs
   none of these functions. */

/** Creates the QGuiApplication on the calling thread, which becomes the main thread. The arguments are
   copied; `argv` may be NULL. ORRELO_FAILED if the process has an application already. */
ORRELO_EXPORT orrelo_status orrelo_quick_application_start(int argc, const char* const* argv);
/** Runs the event loop until `orrelo_quick_application_quit` or until the last window is closed. `exitCode`
 * may be NULL. */
ORRELO_EXPORT orrelo_status orrelo_quick_application_run(int32_t* exitCode);
/** Makes `orrelo_quick_application_run` return. Any thread. */
ORRELO_EXPORT void orrelo_quick_application_quit(int32_t exitCode);
/** Destroys the windows and the application, and with them the kit's threads, for the rest of the process.
   Call it last, or not at all. ORRELO_FAILED while the event loop runs: call it after
   orrelo_quick_application_run has returned. */
ORRELO_EXPORT orrelo_status orrelo_quick_application_finish(void);

/** Loads a QML file whose root is a Window, and returns its QQuickWindow. `path` may be that of a file, or a
   URL such as "qrc:/Main.qml". NULL on failure, with the file's errors. The file has an OrreloHost, around
   the host's own content:

        import QtQuick
        import Orrelo
        Window { visible: true; OrreloHost { anchors.fill: parent } }
*/
ORRELO_EXPORT void* orrelo_quick_window_open(const char* path);
/** Closes a window that `orrelo_quick_window_open` has returned. It is destroyed when control returns to the
   event loop, or at once if none runs. Closing it again is ORRELO_INVALID_ARGUMENT. */
ORRELO_EXPORT orrelo_status orrelo_quick_window_close(void* window);
/** The QQuickItem with this `objectName` in a window, which owns it; NULL as the name for the item that
   contains all others. NULL if there is none. */
ORRELO_EXPORT void* orrelo_quick_window_item(void* window, const char* objectName);

/* The kit's screens */

/** Platform::install with orrelo::quick::platform. Call it once, after the QGuiApplication and before
   `orrelo_initialize`. `host` may be NULL. Without a QGuiApplication it is ORRELO_FAILED and does not stop
   the process. */
ORRELO_EXPORT orrelo_status orrelo_quick_install_platform(const orrelo_host_application* host);

/** quick::setWarmUpEnabled: switches on or off what prepares the process for its first campaign while the
   host rests. It is on. Call it before the window is opened. */
ORRELO_EXPORT orrelo_status orrelo_quick_set_warm_up_enabled(bool isOn);

/** The screen of the host's own content in this window, from which the kit's screens are shown. The caller
   frees the handle. */
ORRELO_EXPORT orrelo_view_controller* orrelo_quick_host_view_controller(void* window);
/** Shows a screen that the kit has made over everything in the window. ORRELO_FAILED if that is not possible.
 */
ORRELO_EXPORT orrelo_status orrelo_quick_present(void* window, const orrelo_view_controller* screen,
                                                 bool animated);
/** Pushes the screen onto the window's stack. ORRELO_FAILED if the window's OrreloHost does not push screens.
 */
ORRELO_EXPORT orrelo_status orrelo_quick_push(void* window, const orrelo_view_controller* screen,
                                              bool animated);

/* Entries on the host's own pages, made after `orrelo_initialize`. The result is a QQuickItem, which its
   parent, a QQuickItem, owns. NULL on failure. */

/** ORLCampaignEntryView. `entryName` may be NULL: then the view reports no events. */
ORRELO_EXPORT void* orrelo_quick_new_campaign_entry_view(void* parent, const char* entryName);
/** Makes `count` items open home, in place of former ones. The items stay their owners'. */
ORRELO_EXPORT orrelo_status orrelo_quick_campaign_entry_view_set_clickable_views(void* entryView,
                                                                                 void* const* items,
                                                                                 size_t count);
ORRELO_EXPORT orrelo_status orrelo_quick_campaign_entry_view_set_entry_name(void* entryView,
                                                                            const char* entryName);
/** ORLCampaignFloatingActionButton. */
ORRELO_EXPORT void* orrelo_quick_new_campaign_floating_action_button(void* parent);
/** makeExternalPointEntryView. */
ORRELO_EXPORT void* orrelo_quick_new_external_point_entry_view(void* parent);

#ifdef __cplusplus
}
#endif
