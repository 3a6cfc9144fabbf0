#pragma once

#include "base/StringDictionary.h"
#include "events/Event.h"
#include "events/SaveBIEventUseCase.h"

#include <orrelo/ORLUserEvent.h>

#include <memory>
#include <string>

namespace orrelo {

/// Converts an event of a screen; its values are flattened like those of a host event.
BIEvent toBIEvent(const ORLUserEvent& event);

/// The entry point of the kit's own events to their pipeline. They are reported even if the service has
/// disabled the kit. There is one instance per process, which is absent until the kit is initialized. Any
/// thread.
class KelsoInsight {
 public:
  /// Replaces the current instance; the former one stops sending and is released.
  static void makeCurrent(std::shared_ptr<KelsoInsight> insight);
  /// Null until `makeCurrent`.
  static std::shared_ptr<KelsoInsight> instance();

  /// Reports an event with the current time and the current user. Does nothing before `makeCurrent`.
  static void track(const std::string& name, const StringDictionary& values);
  /// Reports an event of a screen.
  static void track(const ORLUserEvent& event);

  explicit KelsoInsight(SaveBIEventUseCase saveBIEventUseCase)
      : saveBIEventUseCase_(std::move(saveBIEventUseCase)) {}

  /// Called by the EventIntake; see EventPipeline::save.
  void save(const BIEvent& event, bool mayBeStored, EventPipeline::SaveCompletion completion) const {
    saveBIEventUseCase_.save(event, mayBeStored, std::move(completion));
  }
  void stopSending() const { saveBIEventUseCase_.stopSending(); }
  ORLDiagnostics::Pipeline status() const { return saveBIEventUseCase_.status(); }

 private:
  SaveBIEventUseCase saveBIEventUseCase_;
};

}  // namespace orrelo
