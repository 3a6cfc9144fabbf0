#pragma once

#include "events/Event.h"
#include "events/OLSEventMapper.h"
#include "kit/OrreloComponent.h"
#include "reactive/Disposable.h"

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace orrelo {

/// The result of `Orrelo::initialize`: the component tree and the queue of the host's events before their
/// store.
class InitializedOrrelo {
 public:
  explicit InitializedOrrelo(std::unique_ptr<OrreloComponent> orreloComponent)
      : component(std::move(orreloComponent)) {}

  /// The current instance; null until `makeCurrent`. All static functions may be called on any thread.
  static std::shared_ptr<InitializedOrrelo> current();
  /// Sets the current instance. The former one stops sending and is released; its queued events that are not
  /// yet stored go to the new one.
  static void makeCurrent(std::shared_ptr<InitializedOrrelo> instance);

  /// Queues an event of the current time and user for the current instance, which must exist. The event is
  /// stored if the service's configuration enables the SDK. Returns at once: the values are mapped on a
  /// worker, and calls in quick succession share one task.
  static void enqueue(std::string_view name, EventValues&& values);

  const std::unique_ptr<OrreloComponent> component;
  const OLSEventMapper eventMapper{};

 private:
  /// Stores the queued events with the current instance. It has no captures, so that posting it allocates
  /// nothing on the caller's thread.
  static void storeQueued();
  void store(Event event);

  reactive::DisposeBag disposeBag_;
};

}  // namespace orrelo
