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

/// What `Orrelo::initialize` makes: the tree, and the road of the host's events from the call to their store.
class InitializedOrrelo {
 public:
  explicit InitializedOrrelo(std::unique_ptr<OrreloComponent> orreloComponent)
      : component(std::move(orreloComponent)) {}

  /// The one in use; null until `makeCurrent`. Any thread, as are all of these.
  static std::shared_ptr<InitializedOrrelo> current();
  /// Puts it into use. The former one stops sending and is let go; events that it had accepted and not yet
  /// begun to store go on to this one.
  static void makeCurrent(std::shared_ptr<InitializedOrrelo> instance);

  /// For the one in use, which there must be: an event of now and of the current user; stored if the
  /// service's configuration lets it through. Returns at once: the values are flattened on a worker, and
  /// calls that follow one another closely share one task.
  static void accept(std::string_view name, EventValues&& values);

  const std::unique_ptr<OrreloComponent> component;
  const OLSEventMapper eventMapper{};

 private:
  /// Stores what was accepted and not yet stored, by the instance in use. It has no captures, so that posting
  /// it allocates nothing on the caller's thread.
  static void storeAccepted();
  void store(Event event);

  reactive::DisposeBag disposeBag_;
};

}  // namespace orrelo
