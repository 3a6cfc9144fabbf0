#pragma once

#include "base/StringDictionary.h"
#include "events/BIEventRepository.h"

#include <orrelo/ORLUserEvent.h>

#include <memory>
#include <string>

namespace orrelo {

/// From an event of a screen; its values are flattened as a host's are.
BIEvent toBIEvent(const ORLUserEvent& event);

/// Where the kit's own events enter their pipeline. The service's switch does not stop them. One for the
/// process, absent until the kit is initialized; any thread.
class KelsoInsight {
 public:
  /// Puts it into use; the former one stops sending and is let go.
  static void makeCurrent(std::shared_ptr<KelsoInsight> insight);
  /// Null until `makeCurrent`.
  static std::shared_ptr<KelsoInsight> instance();

  /// An event of now and of the current user; nothing happens before `makeCurrent`.
  static void track(const std::string& name, const StringDictionary& values);

  explicit KelsoInsight(SaveBIEventUseCase useCase) : saveBIEventUseCase(std::move(useCase)) {}

  void save(const BIEvent& event) const { saveBIEventUseCase.save(event); }
  void stopSending() const { saveBIEventUseCase.stopSending(); }

 private:
  SaveBIEventUseCase saveBIEventUseCase;
};

}  // namespace orrelo
