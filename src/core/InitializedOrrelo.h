#pragma once

#include "core/OrreloComponent.h"
#include "events/Event.h"
#include "events/OLSEventMapper.h"
#include "reactive/Disposable.h"

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace orrelo {

/// What `Orrelo::initialize` makes: the tree, and the road of the host's events from the call to their store.
class InitializedOrrelo {
 public:
  explicit InitializedOrrelo(std::unique_ptr<OrreloComponent> orreloComponent)
      : component(std::move(orreloComponent)) {}

  /// The one in use; null until `makeCurrent`. Any thread, as are all of these.
  static std::shared_ptr<InitializedOrrelo> current();
  /// Whether there is one in use: then there always will be.
  static bool hasCurrent();
  /// Puts it into use. The former one stops sending and is let go.
  static void makeCurrent(std::shared_ptr<InitializedOrrelo> instance);

  /// For the one in use, which there must be: an event of now and of the current user; stored if the
  /// service's configuration lets it through. Returns at once: the values are flattened on a worker, and
  /// calls that follow one another closely share one task.
  static void accept(std::string_view name, EventValues&& values);

  const std::unique_ptr<OrreloComponent> component;
  const OLSEventMapper eventMapper{};

 private:
  /// What only the moment of the call knows, with values as the host gave them.
  struct Accepted {
    Accepted(const std::optional<std::string>& ofUser, std::string_view named, EventValues&& with, Date at)
        : userId(ofUser), name(named), values(std::move(with)), time(at) {}

    std::optional<std::string> userId;
    std::string name;
    EventValues values;
    Date time;
  };

  /// Has no captures, so that posting it allocates nothing on the caller's thread.
  static void storeAcceptedByCurrent();
  /// False when there were none: then nothing is scheduled any more.
  bool takeAccepted(std::vector<Accepted>& accepted);
  void storeAccepted();
  void store(Event event);

  // Guarded by the lock of the slot that holds the instance in use: a call takes one lock and no more.
  std::vector<Accepted> accepted_;
  bool isScheduled_ = false;
  reactive::DisposeBag disposeBag;
};

}  // namespace orrelo
