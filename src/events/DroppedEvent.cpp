#include "events/DroppedEvent.h"

#include "base/EnumTexts.h"
#include "base/explain.h"

#include <string>

namespace orrelo {
namespace {

constexpr EnumTexts<DropReason, 7> reasons({
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

}  // namespace

void explainDroppedEvent(std::string_view name, DropReason reason) {
  explain(ExplanationLevel::warning, [&] {
    return "The event \"" + std::string(name) + "\" is dropped: " + std::string(reasons.text(reason)) + '.';
  });
}

void explainDroppedEvent(const EventJournal::Record& record, DropReason reason) {
  if (!isExplained(ExplanationLevel::warning)) return;
  const auto content = EventRecord::decode(record.view());
  explainDroppedEvent(content ? content->event.eventName : "(unreadable)", reason);
}

}  // namespace orrelo
