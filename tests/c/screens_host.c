// A host in C with the kit's screens: opens two campaigns, and ends when the user has seen both and the entry
// to home. Usage: c_screens_host <URL of the service> <its certificate> <data folder> <QML file>
#include "require.h"

#include <orrelo/orrelo_quick_c.h>

#include <string.h>

static void* window = NULL;
static int visits = 0, entries = 0;
static bool isClosed = false;

static void presentAttendance(void* context) {
  (void)context;
  orrelo_view_controller* screen = orrelo_get_campaign_view_controller_of_type(ORRELO_CAMPAIGN_ATTENDANCE);
  require(ORRELO_FAILED, orrelo_quick_push(window, screen, false), "a push without a stack");
  OK(orrelo_quick_present(window, screen, false));
  orrelo_view_controller_free(screen);
}

static void userEvent(void* context, const char* name, const orrelo_values* values) {
  (void)context;
  for (size_t i = 0; i < orrelo_values_count(values); ++i) {
    const char* key = orrelo_values_key(values, i);
    const char* text = orrelo_value_get_text(orrelo_values_get(values, key), NULL);
    printf("%s %s=%s\n", name, key, text == NULL ? "?" : text);
  }
  if (strcmp(name, "ol_campaign_entry_point_show") == 0) ++entries;
  if (strcmp(name, "ol_visit") == 0 && ++visits == 1)
    OK(orrelo_main_loop_post(presentAttendance, NULL, NULL));
  if (visits != 2 || entries != 2 || isClosed) return;
  isClosed = true;
  OK(orrelo_quick_window_close(window));
  require(ORRELO_INVALID_ARGUMENT, orrelo_quick_window_close(window), "a second close");
  require(ORRELO_FAILED, orrelo_quick_application_finish(), "an end within the loop");
  orrelo_quick_application_quit(0);
}

static void start(char** words) {
  orrelo_host_application* host = orrelo_host_application_new("com.example.c-screens-host");
  OK(orrelo_host_application_set_data_directory(host, words[3]));
  OK(orrelo_host_application_set_cache_directory(host, words[3]));
  OK(orrelo_host_application_set_development_service(host, words[1], words[2]));
  require(ORRELO_FAILED, orrelo_quick_install_platform(host), "a platform before the application");
  OK(orrelo_quick_application_start(1, (const char* const*)words));
  require(ORRELO_FAILED, orrelo_quick_application_start(0, NULL), "a second application");
  OK(orrelo_quick_set_warm_up_enabled(true));
  OK(orrelo_quick_install_platform(host));
  orrelo_host_application_free(host);

  orrelo_config* config = orrelo_config_new("c-screens-host");
  OK(orrelo_initialize(config));
  orrelo_config_free(config);
  OK(orrelo_set_user_event_delegate(userEvent, NULL, NULL));
}

static void fillPage(void) {
  void* page = orrelo_quick_window_item(window, "page");
  void* banner = orrelo_quick_window_item(window, "banner");
  void* entry = orrelo_quick_new_campaign_entry_view(page, "page of C");
  OK(orrelo_quick_campaign_entry_view_set_clickable_views(entry, &banner, 1));
  if (orrelo_quick_new_campaign_floating_action_button(page) == NULL ||
      orrelo_quick_new_external_point_entry_view(page) == NULL) {
    require(ORRELO_OK, orrelo_last_status(), "an entry");
  }
  require(ORRELO_INVALID_ARGUMENT, orrelo_quick_campaign_entry_view_set_entry_name(page, "name"),
          "an item that is no entry");
  require(ORRELO_INVALID_ARGUMENT, orrelo_quick_present(page, NULL, false), "an item that is no window");
}

static void signIn(void) {
  orrelo_user* user = orrelo_user_new("minji");
  OK(orrelo_set_user(user));
  orrelo_user_free(user);
}

int main(int count, char** words) {
  if (count != 5) return 2;
  setvbuf(stdout, NULL, _IONBF, 0);
  start(words);
  if (orrelo_quick_window_open("/none.qml") != NULL) return 1;
  printf("refused: %s\n", orrelo_last_error());
  window = orrelo_quick_window_open(words[4]);
  require(ORRELO_OK, orrelo_last_status(), "orrelo_quick_window_open");
  fillPage();
  signIn();
  orrelo_view_controller* screen = orrelo_quick_host_view_controller(window);
  OK(orrelo_show_campaign("stamp", screen));
  orrelo_view_controller_free(screen);
  int32_t code = -1;
  OK(orrelo_quick_application_run(&code));
  OK(orrelo_set_user_event_delegate(NULL, NULL, NULL));
  require(ORRELO_INVALID_ARGUMENT, orrelo_quick_window_close(window), "a window that has been destroyed");
  OK(orrelo_quick_application_finish());
  printf("done after %d visits\n", visits);
  return code;
}
