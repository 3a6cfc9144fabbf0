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
/// process, absent until `setUp`; any thread.
class KelsoInsight {
 public:
  /// Builds the pipeline for the application and makes it the one in use; the former one is let go. `baseUrl`
  /// ends in
  /// "/orreloservice/".
  static void setUp(const std::string& appKey, const std::string& baseUrl);
  /// Null until `setUp`.
  static std::shared_ptr<KelsoInsight> instance();

  /// An event of now and of the current user; nothing happens before `setUp`.
  static void track(const std::string& name, const StringDictionary& values);

  explicit KelsoInsight(SaveBIEventUseCase saveBIEventUseCase)
      : saveBIEventUseCase_(std::move(saveBIEventUseCase)) {}

  void save(const BIEvent& event) const { saveBIEventUseCase_.save(event); }
  void stopSending() const { saveBIEventUseCase_.stopSending(); }

 private:
  SaveBIEventUseCase saveBIEventUseCase_;
};

}  // namespace orrelo
