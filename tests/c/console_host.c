// A host in C without screens: reports events and sends them, until the file that it is called with is
// opened.
#include "require.h"

#include <orrelo/orrelo_c.h>

#include <pthread.h>
#include <stdio.h>
#include <string.h>
#include <unistd.h>

static void installPlatform(const char* url, const char* certificate, const char* folder) {
  orrelo_host_application* host = orrelo_host_application_new("com.example.c-host");
  OK(orrelo_host_application_set_version(host, "1.0", "1"));
  OK(orrelo_host_application_set_data_directory(host, folder));
  OK(orrelo_host_application_set_cache_directory(host, folder));
  OK(orrelo_host_application_set_development_service(host, url, certificate));
  OK(orrelo_install_posix_platform(host));
  orrelo_host_application_free(host);
}

static void initialize(void) {
  orrelo_config* config = orrelo_config_new("c-host");
  OK(orrelo_initialize(config));
  orrelo_config_free(config);
}

static void signIn(void) {
  orrelo_user* user = orrelo_user_new("minji");
  orrelo_values* properties = orrelo_values_new();
  OK(orrelo_values_set_integer(properties, "level", 3));
  OK(orrelo_user_set_properties(user, properties));
  OK(orrelo_user_set_marketing_status(user, ORRELO_MARKETING_OPT_IN));
  OK(orrelo_set_user(user));
  orrelo_values_free(properties);
  orrelo_user_free(user);
}

static void buy(void) {
  orrelo_values* values = orrelo_values_new();
  orrelo_value* sizes = orrelo_value_new_list();
  OK(orrelo_value_append(sizes, orrelo_value_new_integer(41)));
  OK(orrelo_value_append(sizes, orrelo_value_new_number(42.5)));
  OK(orrelo_values_set(values, "sizes", sizes));
  OK(orrelo_values_set_text(values, "item", "blue \xff shoes"));
  OK(orrelo_values_set_bool(values, "gift", true));
  OK(orrelo_send_event("purchase", values));
  OK(orrelo_values_set(values, "gift", orrelo_value_new_null()));
  require(ORRELO_UNSUPPORTED_VALUE, orrelo_send_event("refused", values), "an event with null");
  printf("refused: %s\n", orrelo_last_error());
  orrelo_values_free(values);
}

static void explain(void* prefix, int32_t level, const char* line) {
  printf("%s %d: %s\n", (const char*)prefix, (int)level, line);
}

static void countFlush(void* count) {
  printf("flushed: %d\n", ++*(int*)count);
}
static void flushed(void* count, bool isFlushed) {
  if (isFlushed) OK(orrelo_main_loop_post(countFlush, count, NULL));
}

static void* awaitEnd(void* path) {
  FILE* file = fopen(path, "r");
  if (file != NULL) fclose(file);
  orrelo_run_loop_stop();
  return NULL;
}

// Runs when the main thread's own variables have been destroyed.
static void callAtExit(void) {
  if (orrelo_send_event(NULL, NULL) != ORRELO_INVALID_ARGUMENT ||
      strcmp(orrelo_last_error(), "name is NULL") != 0) {
    _exit(3);
  }
}

int main(int count, char** words) {
  if (count != 5 || atexit(callAtExit) != 0) return 2;
  require(ORRELO_NOT_INITIALIZED, orrelo_send_event("early", NULL), "an early event");
  OK(orrelo_explanations_set_sink(ORRELO_EXPLANATION_INFO, explain, "explained", NULL));
  installPlatform(words[1], words[2], words[3]);
  initialize();
  signIn();
  buy();
  OK(orrelo_set_push_token("token of C"));
  OK(orrelo_flush(10000));
  int flushes = 0;
  OK(orrelo_flush_async(10000, flushed, &flushes, NULL));
  pthread_t thread;
  if (pthread_create(&thread, NULL, awaitEnd, words[4]) != 0) return 1;
  OK(orrelo_run_loop_run());
  pthread_join(thread, NULL);
  OK(orrelo_set_user(NULL));
  printf("done with %s\n", orrelo_version());
  return 0;
}
