#include "c/Callback.h"
#include "c/handles.h"

#include <orrelo/MainLoop.h>
#include <orrelo/ORLExplanations.h>
#include <orrelo/ORLLogger.h>
#include <orrelo/Url.h>

#include <optional>
#include <string>
#include <string_view>
#include <utility>

using namespace orrelo;
using namespace orrelo::c;

static_assert(static_cast<int>(ExplanationLevel::error) == ORRELO_EXPLANATION_ERROR &&
              static_cast<int>(ExplanationLevel::debug) == ORRELO_EXPLANATION_DEBUG);

namespace {

template <class Member>
orrelo_status setText(orrelo_host_application* host, Member HostApplication::*member, const char* text) {
  return attempt([&] { required(host, "host")->host.*member = required(text, "text"); });
}

}  // namespace

const char* orrelo_version() {
  return ORRELO_VERSION;
}

void orrelo_logger_enable() {
  attemptSilently([] { ORLLogger::enable(); });
}

orrelo_status orrelo_explanations_set_sink(int32_t level, orrelo_explanation_sink sink, void* context,
                                           orrelo_destroy destroy) {
  return attempt([&] {
    const Callback<int32_t, const char*> callback(sink, context, destroy);
    ORLExplanations::Sink lines;
    if (callback) {
      lines = [callback](ExplanationLevel lineLevel, std::string_view line) {
        callback(static_cast<int32_t>(lineLevel), std::string(line).c_str());
      };
    }
    const bool isKnown = level >= ORRELO_EXPLANATION_ERROR && level <= ORRELO_EXPLANATION_DEBUG;
    const auto known = isKnown ? std::optional(static_cast<ExplanationLevel>(level)) : std::nullopt;
    ORLExplanations::setSink(caseOf(known, "level"), std::move(lines));
  });
}

orrelo_host_application* orrelo_host_application_new(const char* bundleIdentifier) {
  return attemptNew([&] {
    auto host = std::make_unique<orrelo_host_application>();
    if (bundleIdentifier != nullptr) host->host.bundleIdentifier = bundleIdentifier;
    return host.release();
  });
}

void orrelo_host_application_free(orrelo_host_application* host) {
  delete host;
}

orrelo_status orrelo_host_application_set_version(orrelo_host_application* host, const char* shortVersion,
                                                  const char* bundleVersion) {
  return attempt([&] {
    auto& application = required(host, "host")->host;
    required(bundleVersion, "bundleVersion");
    application.shortVersion = required(shortVersion, "shortVersion");
    application.bundleVersion = bundleVersion;
  });
}

orrelo_status orrelo_host_application_set_data_directory(orrelo_host_application* host, const char* path) {
  return setText(host, &HostApplication::dataDirectory, path);
}

orrelo_status orrelo_host_application_set_cache_directory(orrelo_host_application* host, const char* path) {
  return setText(host, &HostApplication::cacheDirectory, path);
}

orrelo_status orrelo_host_application_add_url_scheme(orrelo_host_application* host, const char* scheme) {
  return attempt([&] { required(host, "host")->host.urlSchemes.emplace_back(required(scheme, "scheme")); });
}

orrelo_status orrelo_host_application_set_development_service(orrelo_host_application* host, const char* url,
                                                              const char* certificateFile) {
  return attempt([&] {
    auto& service = required(host, "host")->host.developmentService;
    const auto known = Url::parse(required(url, "url"));
    if (!known || known->scheme() != "https" || known->host().empty()) {
      throw CallFailure{ORRELO_INVALID_ARGUMENT, "url is not an https URL with a host"};
    }
    service.url = url;
    service.certificateFile = certificateFile == nullptr ? "" : certificateFile;
  });
}

orrelo_status orrelo_install_posix_platform(const orrelo_host_application* host) {
  return attempt(
      [&] { Platform::install(Platform::posix(host == nullptr ? HostApplication() : host->host)); });
}

orrelo_status orrelo_main_loop_post(orrelo_task task, void* context, orrelo_destroy destroy) {
  return attempt([&] {
    Callback<> callback(task, context, destroy);
    callback.require("task");
    Platform::current().mainLoop->post(std::move(callback));
  });
}

orrelo_status orrelo_main_loop_post_after(int64_t milliseconds, orrelo_task task, void* context,
                                          orrelo_destroy destroy) {
  return attempt([&] {
    Callback<> callback(task, context, destroy);
    callback.require("task");
    Platform::current().mainLoop->postAfter(durationOf(milliseconds), std::move(callback));
  });
}

bool orrelo_main_loop_is_current() {
  bool isCurrent = false;
  attemptSilently([&] { isCurrent = Platform::current().mainLoop->isCurrent(); });
  return isCurrent;
}

orrelo_status orrelo_run_loop_run() {
  return attempt([] { RunLoop::main().run(); });
}

orrelo_status orrelo_run_loop_run_for(int64_t milliseconds) {
  return attempt([&] { RunLoop::main().runFor(durationOf(milliseconds)); });
}

void orrelo_run_loop_stop() {
  attemptSilently([] { RunLoop::main().stop(); });
}
