#include "base/DateFormat.h"
#include "base/EnumTexts.h"
#include "base/JsonWriter.h"
#include "base/Utf8.h"

#include <orrelo/ORLDiagnostics.h>

#include <concepts>
#include <string_view>
#include <utility>

namespace orrelo {
namespace {

using Source = ORLDiagnostics::ConfigurationSource;

constexpr EnumTexts<Source, 4> sources({
    {Source::none, "none"},
    {Source::service, "service"},
    {Source::device, "device"},
    {Source::defaults, "defaults"},
});

/// One function for each type of a field; collections and absent values are made of them.
class Writer {
 public:
  void write(const std::string& text) { json_.text(utf8::repaired(text)); }
  void write(bool flag) { json_.boolean(flag); }
  template <std::integral Number>
  requires(!std::same_as<Number, bool>) void write(Number number) {
    json_.integer(static_cast<std::int64_t>(number));
  }
  void write(std::chrono::milliseconds duration) { write(duration.count()); }
  void write(Date date) { json_.text(formatDate(date, "yyyy-MM-dd'T'HH:mm:ss.SSSSSS'Z'")); }
  void write(Source source) { json_.text(sources.text(source)); }
  template <class T>
  void write(const std::optional<T>& value) {
    value ? write(*value) : static_cast<void>(json_.null());
  }
  template <class T>
  void write(const std::vector<T>& values) {
    json_.beginArray();
    for (const auto& value : values) write(value);
    json_.endArray();
  }
  template <class T>
  void write(const std::map<std::string, T>& entries) {
    json_.beginObject();
    for (const auto& [key, value] : entries) field(key, value);
    json_.endObject();
  }

  void write(const ORLDiagnostics::Environment& environment) {
    object([&] {
      field("kitVersion", environment.kitVersion);
      field("kitBuild", environment.kitBuild);
      field("hostIdentifier", environment.hostIdentifier);
      field("hostVersion", environment.hostVersion);
      field("systemVersion", environment.systemVersion);
      field("applicationKey", environment.applicationKey);
      field("name", environment.name);
      field("serviceUrl", environment.serviceUrl);
      field("certificateFile", environment.certificateFile);
      field("dataDirectory", environment.dataDirectory);
    });
  }
  void write(const ORLDiagnostics::Configuration& configuration) {
    object([&] {
      field("source", configuration.source);
      field("time", configuration.time);
      field("isEnabled", configuration.isEnabled);
      field("failure", configuration.failure);
      field("failureTime", configuration.failureTime);
    });
  }
  void write(const ORLDiagnostics::Events& events) {
    object([&] {
      field("accepted", events.accepted);
      field("adopted", events.adopted);
      field("onTheirWay", events.onTheirWay);
      field("dropped", events.dropped);
    });
  }
  void write(const ORLDiagnostics::Pipeline& pipeline) {
    object([&] {
      field("store", pipeline.store);
      field("waiting", pipeline.waiting);
      field("storeFailure", pipeline.storeFailure);
      field("sent", pipeline.sent);
      field("failed", pipeline.failed);
      field("lastFailure", pipeline.lastFailure);
      field("ended", pipeline.ended);
    });
  }
  void write(const ORLDiagnostics::Journal& journal) {
    object([&] {
      field("records", journal.records);
      field("bytes", journal.bytes);
      field("unwrittenBytes", journal.unwrittenBytes);
    });
  }
  void write(const ORLDiagnostics::Request& request) {
    object([&] {
      field("time", request.time);
      field("method", request.method);
      field("url", request.url);
      field("status", request.status);
      field("failure", request.failure);
      field("duration", request.duration);
    });
  }
  void write(const ORLDiagnostics::Omission& omission) {
    object([&] {
      field("pointer", omission.pointer);
      field("reason", omission.reason);
    });
  }
  void write(const ORLDiagnostics::Page& page) {
    object([&] {
      field("time", page.time);
      field("path", page.path);
      field("omissions", page.omissions);
      field("omissionCount", page.omissionCount);
    });
  }
  void write(const ORLDiagnostics::Process& process) {
    object([&] {
      field("kitThreads", process.kitThreads);
      field("threads", process.threads);
      field("residentBytes", process.residentBytes);
      field("pictureBytes", process.pictureBytes);
    });
  }
  void write(const ORLDiagnostics& snapshot) {
    object([&] {
      field("time", snapshot.time);
      field("isInitialized", snapshot.isInitialized);
      field("environment", snapshot.environment);
      field("configuration", snapshot.configuration);
      field("user", snapshot.user);
      field("events", snapshot.events);
      field("hostEvents", snapshot.hostEvents);
      field("kitEvents", snapshot.kitEvents);
      field("journal", snapshot.journal);
      field("requests", snapshot.requests);
      field("pages", snapshot.pages);
      field("skippedToday", snapshot.skippedToday);
      field("process", snapshot.process);
    });
  }

  std::string result() && { return std::move(json_).result(); }

 private:
  template <class Fields>
  void object(const Fields& fields) {
    json_.beginObject();
    fields();
    json_.endObject();
  }
  template <class T>
  void field(std::string_view name, const T& value) {
    json_.key(name);
    write(value);
  }

  JsonWriter json_;
};

}  // namespace

std::string ORLDiagnostics::json() const {
  Writer writer;
  writer.write(*this);
  return std::move(writer).result();
}

}  // namespace orrelo
