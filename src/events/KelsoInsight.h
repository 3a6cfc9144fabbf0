#pragma once

#include "base/StringDictionary.h"
#include "events/BIEventRepository.h"

#include <orrelo/ORLUserEvent.h>

#include <memory>
#include <string>

namespace orrelo {

/// Converts an event of a screen; its values are flattened like those of a host event.
BIEvent toBIEvent(const ORLUserEvent& event);

/// The entry point of the kit's own events to their pipeline. They are reported even if the service has
/// disabled the kit. There is one instance per process, which is absent until `setUp`. Any thread.
class KelsoInsight {
 public:
  /// Builds the pipeline of the application and replaces the current instance, which then stops sending.
  /// `baseUrl` must end with "/orreloservice/".
  static void setUp(const std::string& appKey, const std::string& baseUrl);
  /// Null until `setUp`.
  static std::shared_ptr<KelsoInsight> instance();

  /// Reports an event with the current time and the current user. Does nothing before `setUp`.
  static void track(const std::string& name, const StringDictionary& values);

  explicit KelsoInsight(SaveBIEventUseCase saveBIEventUseCase)
      : saveBIEventUseCase_(std::move(saveBIEventUseCase)) {}

  void save(const BIEvent& event) const { saveBIEventUseCase_.save(event); }
  void stopSending() const { saveBIEventUseCase_.stopSending(); }

 private:
  SaveBIEventUseCase saveBIEventUseCase_;
};

}  // namespace orrelo
