#include "events/KelsoInsight.h"

#include "base/Utf8.h"
#include "events/EventIntake.h"
#include "events/OLSEventMapper.h"

#include <mutex>
#include <utility>

namespace orrelo {
namespace {

struct Slot {
  std::mutex mutex;
  std::shared_ptr<KelsoInsight> instance;
};

Slot& slot() {
  static auto* const slot = new Slot;
  return *slot;
}

}  // namespace

BIEvent toBIEvent(const ORLUserEvent& event) {
  static const OLSEventMapper mapper;
  return makeEvent(utf8::repaired(event.name), event.values ? mapper.map(*event.values) : StringDictionary());
}

void KelsoInsight::makeCurrent(std::shared_ptr<KelsoInsight> insight) {
  {
    const std::lock_guard lock(slot().mutex);
    std::swap(slot().instance, insight);
  }
  if (insight) insight->stopSending();  // others may still hold the previous instance
}

std::shared_ptr<KelsoInsight> KelsoInsight::instance() {
  const std::lock_guard lock(slot().mutex);
  return slot().instance;
}

void KelsoInsight::track(const std::string& name, const StringDictionary& values) {
  if (!instance()) return;
  StringDictionary texts;
  for (const auto& [key, value] : values) texts.set(utf8::repaired(key), utf8::repaired(value));
  EventIntake::shared().accept(makeEvent(utf8::repaired(name), std::move(texts)));
}

void KelsoInsight::track(const ORLUserEvent& event) {
  if (instance()) EventIntake::shared().accept(toBIEvent(event));
}

}  // namespace orrelo
