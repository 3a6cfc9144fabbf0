#include "ui/RunningKit.h"

#include "base/Logger.h"
#include "base/explain.h"
#include "model/UserManager.h"
#include "platform/threads/onMain.h"
#include "ui/showScreen.h"

#include <orrelo/Platform.h>

#include <atomic>
#include <mutex>
#include <utility>

namespace orrelo {
namespace {

struct Slot {
  std::mutex mutex;
  std::shared_ptr<const RunningKit> kit;
  /// Read for each event of the host, and therefore without the lock.
  std::atomic<bool> isSet = false;
};

Slot& slot() {
  static auto* const slot = new Slot;
  return *slot;
}

bool isSet() {
  return slot().isSet.load(std::memory_order_acquire);
}

}  // namespace

std::shared_ptr<const RunningKit> RunningKit::current() {
  const std::lock_guard lock(slot().mutex);
  return slot().kit;
}

void RunningKit::makeCurrent(std::shared_ptr<const RunningKit> kit) {
  const std::lock_guard lock(slot().mutex);
  std::swap(slot().kit, kit);  // the former one is released outside the lock
  slot().isSet.store(slot().kit != nullptr, std::memory_order_release);
}

bool RunningKit::isInitialized(std::string_view operation) {
  if (isSet()) return true;
  log(LogLevel::ERROR, [operation] {
    return "Orrelo SDK is not initialized. Call Orrelo.initialize() before " + std::string(operation);
  });
  explain(ExplanationLevel::error, [operation] {
    return std::string(operation) +
           " does nothing, since the kit is not initialized: call Orrelo::initialize " +
           "first, once and early.";
  });
  return isSet();  // another thread may have initialized meanwhile
}

void RunningKit::showCampaign(const std::string& id, const std::shared_ptr<ViewController>& with) {
  if (!isInitialized("showCampaign(by:with:)")) return;
  explainMissingScreen(with, "showCampaign");
  onMain(*Platform::current().mainLoop, [id, with] {
    if (const auto kit = current()) {
      showScreen(kit->campaignNavigator->campaignViewControllerFactory()->make(id), with);
    }
  });
}

void RunningKit::showHome(const std::shared_ptr<ViewController>& with) {
  if (!isInitialized("showHome(with:)")) return;
  explainMissingScreen(with, "showHome");
  onMain(*Platform::current().mainLoop, [with, userId = currentUserId()] {
    if (const auto kit = current()) kit->campaignNavigator->showHome(with, userId);
  });
}

}  // namespace orrelo
