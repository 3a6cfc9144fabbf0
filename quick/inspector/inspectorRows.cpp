#include "quick/inspector/inspectorRows.h"

#include <orrelo/ORLDiagnostics.h>

#include <QDateTime>
#include <QStringList>
#include <QUrl>
#include <optional>
#include <string>

namespace orrelo::quick {
namespace {

using inspector::Section;
using inspector::Tone;
using Rows = QList<InspectorRow>;

QString text(const std::string& text) {
  return QString::fromStdString(text);
}

QString text(const std::optional<std::string>& value, const char* absent) {
  return value ? text(*value) : QString::fromLatin1(absent);
}

template <class Number>
requires std::is_integral_v<Number> QString text(Number number) {
  return QString::number(number);
}

QString timeText(Date date) {
  const auto milliseconds = std::chrono::duration_cast<std::chrono::milliseconds>(date.sinceEpoch());
  return QDateTime::fromMSecsSinceEpoch(milliseconds.count()).toString(QStringLiteral("HH:mm:ss"));
}

QString sizeText(std::size_t bytes) {
  constexpr double kibibyte = 1024;
  constexpr double mebibyte = kibibyte * kibibyte;
  const auto size = static_cast<double>(bytes);
  if (size < kibibyte) return QStringLiteral("%1 bytes").arg(bytes);
  if (size < mebibyte) return QStringLiteral("%1 KiB").arg(size / kibibyte, 0, 'f', 0);
  return QStringLiteral("%1 MiB").arg(size / mebibyte, 0, 'f', 1);
}

void addHeading(Rows& rows, const char* title) {
  rows.append({.isHeading = true, .title = QString::fromLatin1(title), .value = {}, .detail = {}});
}

void add(Rows& rows, const char* title, const QString& value, Tone tone = Tone::Plain) {
  rows.append({.title = QString::fromLatin1(title), .value = value, .detail = {}, .tone = tone});
}

/// A text that may be long, below its title.
void addLong(Rows& rows, const char* title, const QString& text, Tone tone = Tone::Plain) {
  rows.append({.title = QString::fromLatin1(title), .value = {}, .detail = text, .tone = tone});
}

void addIfAny(Rows& rows, const char* title, const std::optional<std::string>& fault) {
  if (fault) addLong(rows, title, text(*fault), Tone::Bad);
}

void addConfiguration(Rows& rows, const ORLDiagnostics::Configuration& configuration) {
  addHeading(rows, "Configuration");
  using Source = ORLDiagnostics::ConfigurationSource;
  switch (configuration.source) {
    case Source::none:
      add(rows, "Source", QStringLiteral("no answer yet"), Tone::Warning);
      break;
    case Source::service:
      add(rows, "Source", QStringLiteral("service"), Tone::Good);
      break;
    case Source::device:
      add(rows, "Source", QStringLiteral("this device"), Tone::Warning);
      break;
    case Source::defaults:
      add(rows, "Source", QStringLiteral("defaults: events are dropped"), Tone::Bad);
      break;
  }
  add(rows, "Received",
      configuration.time ? timeText(*configuration.time) : QStringLiteral("not in this process"));
  add(rows, "Kit", configuration.isEnabled ? QStringLiteral("on") : QStringLiteral("off"),
      configuration.isEnabled ? Tone::Good : Tone::Bad);
  addIfAny(rows, "Last failure", configuration.failure);
  if (configuration.failureTime) add(rows, "Failed", timeText(*configuration.failureTime));
}

Rows overview(const ORLDiagnostics& snapshot) {
  Rows rows;
  const auto& environment = snapshot.environment;
  addHeading(rows, "Kit");
  add(rows, "Version",
      QStringLiteral("%1 (%2)").arg(text(environment.kitVersion), text(environment.kitBuild)));
  if (!snapshot.isInitialized) {
    add(rows, "State", QStringLiteral("Orrelo::initialize was not called"), Tone::Bad);
    return rows;
  }
  add(rows, "Host", (text(environment.hostIdentifier) + u' ' + text(environment.hostVersion)).trimmed());
  add(rows, "System", text(environment.systemVersion));
  add(rows, "User", text(snapshot.user, "nobody is signed in"), snapshot.user ? Tone::Plain : Tone::Warning);
  for (const auto& skipped : snapshot.skippedToday) add(rows, "Declined for today", text(skipped));
  addHeading(rows, "Service");
  add(rows, "Environment", text(environment.name));
  addLong(rows, "URL", text(environment.serviceUrl));
  add(rows, "Application key", text(environment.applicationKey));
  addLong(rows, "Certificates", text(environment.certificateFile, "those of this machine"));
  addConfiguration(rows, snapshot.configuration);
  addHeading(rows, "Process");
  add(rows, "Threads",
      QStringLiteral("%1, of them %2 of the kit")
          .arg(snapshot.process.threads)
          .arg(snapshot.process.kitThreads));
  add(rows, "Resident memory", sizeText(snapshot.process.residentBytes));
  add(rows, "Pictures in memory", sizeText(snapshot.process.pictureBytes));
  addLong(rows, "Data folder", text(environment.dataDirectory));
  return rows;
}

void addPipeline(Rows& rows, const char* title, const ORLDiagnostics::Pipeline& pipeline) {
  addHeading(rows, title);
  add(rows, "Waiting in the store", pipeline.waiting ? text(*pipeline.waiting) : QStringLiteral("not known"));
  add(rows, "Sent", text(pipeline.sent));
  add(rows, "Requests that failed", text(pipeline.failed), pipeline.failed > 0 ? Tone::Warning : Tone::Plain);
  addIfAny(rows, "Last failure", pipeline.lastFailure);
  addIfAny(rows, "Ended until the next start", pipeline.ended);
  addIfAny(rows, "The store refuses", pipeline.storeFailure);
  addLong(rows, "Store", text(pipeline.store));
}

Rows events(const ORLDiagnostics& snapshot) {
  Rows rows;
  addHeading(rows, "Reported in this process");
  add(rows, "Accepted", text(snapshot.events.accepted));
  if (snapshot.events.adopted > 0) add(rows, "Left by ended processes", text(snapshot.events.adopted));
  add(rows, "On their way to a store", text(snapshot.events.onTheirWay));
  for (const auto& [reason, count] : snapshot.events.dropped) {
    rows.append({.title = QStringLiteral("Dropped: ") + text(reason),
                 .value = text(count),
                 .detail = {},
                 .tone = Tone::Bad});
  }
  addPipeline(rows, "Events of the host", snapshot.hostEvents);
  addPipeline(rows, "Events of the kit", snapshot.kitEvents);
  addHeading(rows, "Journal");
  add(rows, "Records", text(snapshot.journal.records));
  add(rows, "Size", sizeText(snapshot.journal.bytes));
  add(rows, "In memory alone", sizeText(snapshot.journal.unwrittenBytes),
      snapshot.journal.unwrittenBytes > 0 ? Tone::Bad : Tone::Plain);
  return rows;
}

InspectorRow rowOf(const ORLDiagnostics::Request& request) {
  const QUrl url(text(request.url));
  InspectorRow row;
  row.title = text(request.method) + u' ' + url.path();
  QStringList values;
  if (request.status) values.append(text(*request.status));
  if (request.duration) values.append(QStringLiteral("%1 ms").arg(request.duration->count()));
  row.value = values.join(QStringLiteral(" · "));
  row.detail = timeText(request.time) + QStringLiteral("  ") + url.authority();
  if (url.hasQuery()) row.detail += u'?' + url.query();
  if (request.failure) row.detail += u'\n' + text(*request.failure);
  const bool isSuccess = request.status.value_or(0) >= 200 && request.status.value_or(0) <= 299;
  row.tone = isSuccess ? Tone::Good : Tone::Bad;
  return row;
}

InspectorRow rowOf(const ORLDiagnostics::Page& page) {
  InspectorRow row;
  row.title = text(page.path);
  QStringList details{timeText(page.time)};
  for (const auto& omission : page.omissions) {
    const auto pointer = omission.pointer.empty() ? QStringLiteral("The reply") : text(omission.pointer);
    details.append(pointer + u' ' + text(omission.reason));
  }
  row.detail = details.join(u'\n');
  row.tone = page.omissions.empty() ? Tone::Good : Tone::Warning;
  row.value = page.omissions.empty() ? QStringLiteral("whole")
                                     : QStringLiteral("%1 left out").arg(page.omissionCount);
  return row;
}

template <class Item>
Rows lastFirst(const std::vector<Item>& items) {
  Rows rows;
  for (auto item = items.rbegin(); item != items.rend(); ++item) rows.append(rowOf(*item));
  return rows;
}

}  // namespace

QString InspectorRow::summary() const {
  QStringList texts{title};
  if (!value.isEmpty()) texts.append(value);
  if (!detail.isEmpty()) texts.append(detail);
  return texts.join(QStringLiteral(", "));
}

QList<InspectorRow> inspectorRows(const ORLDiagnostics& snapshot, Section section) {
  switch (section) {
    case Section::Overview:
      return overview(snapshot);
    case Section::Events:
      return events(snapshot);
    case Section::Requests:
      return lastFirst(snapshot.requests);
    case Section::Pages:
      return lastFirst(snapshot.pages);
  }
  return {};
}

}  // namespace orrelo::quick
