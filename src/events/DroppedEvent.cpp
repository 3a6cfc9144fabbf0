#include "events/DroppedEvent.h"

#include "base/EnumTexts.h"
#include "base/explain.h"

#include <array>
#include <atomic>
#include <string>

namespace orrelo {
namespace {

constexpr std::size_t reasonCount = 7;

/// In Orrelo::diagnostics.
constexpr EnumTexts<DropReason, reasonCount> names({
    {DropReason::disabled, "disabled"},
    {DropReason::unconfigured, "unconfigured"},
    {DropReason::replaced, "replaced"},
    {DropReason::tooOld, "tooOld"},
    {DropReason::refused, "refused"},
    {DropReason::unreadable, "unreadable"},
    {DropReason::homeless, "homeless"},
});

constexpr EnumTexts<DropReason, reasonCount> reasons({
    {DropReason::disabled, "the service's configuration has switched the kit off for this application key"},
    {DropReason::unconfigured,
     "no configuration could be fetched from the service yet, and without one no event is kept. A line about "
     "the request for /config says why"},
    {DropReason::replaced,
     "Orrelo::initialize was called again before the configuration had come. Call it once"},
    {DropReason::tooOld, "it is older than a day"},
    {DropReason::refused, "the journal and the 16 MiB of memory for events are full"},
    {DropReason::unreadable, "its record in the journal is no event"},
    {DropReason::homeless, "the kit that would store it has been replaced"},
});

constinit std::array<std::atomic<std::uint64_t>, reasonCount> counts{};

void explainReason(std::string_view name, DropReason reason) {
  explain(ExplanationLevel::warning, [&] {
    return "The event \"" + std::string(name) + "\" is dropped: " + std::string(reasons.text(reason)) + '.';
  });
}

}  // namespace

void explainDroppedEvent(std::string_view name, DropReason reason) {
  countDroppedEvents(reason, 1);
  explainReason(name, reason);
}

void explainDroppedEvent(const EventJournal::Record& record, DropReason reason) {
  countDroppedEvents(reason, 1);
  if (!isExplained(ExplanationLevel::warning)) return;
  const auto content = EventRecord::decode(record.view());
  explainReason(content ? content->event.eventName : "(unreadable)", reason);
}

void countDroppedEvents(DropReason reason, std::size_t count) {
  counts.at(static_cast<std::size_t>(reason)).fetch_add(count, std::memory_order_relaxed);
}

std::map<std::string, std::uint64_t> droppedEvents() {
  std::map<std::string, std::uint64_t> dropped;
  for (std::size_t i = 0; i < counts.size(); ++i) {
    const auto count = counts[i].load(std::memory_order_relaxed);
    if (count > 0) dropped.emplace(names.text(static_cast<DropReason>(i)), count);
  }
  return dropped;
}

}  // namespace orrelo
