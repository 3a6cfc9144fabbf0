#pragma once

#include "core/OrreloComponent.h"
#include "events/Event.h"
#include "events/OLSEventMapper.h"
#include "reactive/Disposable.h"

#include <memory>
#include <mutex>
#include <vector>

namespace orrelo {

/// What `Orrelo::initialize` makes: the tree, and the road of the host's events from the call to their store.
class InitializedOrrelo : public std::enable_shared_from_this<InitializedOrrelo> {
 public:
  explicit InitializedOrrelo(std::unique_ptr<OrreloComponent> orreloComponent)
      : component(std::move(orreloComponent)) {}

  /// Stores the event if the service's configuration lets it through. Returns at once: calls that follow one
  /// another closely share one task.
  void accept(Event event);

  const std::unique_ptr<OrreloComponent> component;
  const OLSEventMapper eventMapper{};

 private:
  void storeAccepted();

  std::mutex mutex_;
  std::vector<Event> accepted_;
  bool isScheduled_ = false;
  reactive::DisposeBag disposeBag;
};

}  // namespace orrelo
