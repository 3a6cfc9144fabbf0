#pragma once

#include "core/OrreloComponent.h"
#include "events/Event.h"
#include "events/OLSEventMapper.h"
#include "reactive/Disposable.h"

#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

namespace orrelo {

/// What `Orrelo::initialize` makes: the tree, and the road of the host's events from the call to their store.
class InitializedOrrelo : public std::enable_shared_from_this<InitializedOrrelo> {
 public:
  explicit InitializedOrrelo(std::unique_ptr<OrreloComponent> orreloComponent)
      : component(std::move(orreloComponent)) {}

  /// An event of now and of the current user; stored if the service's configuration lets it through. Returns
  /// at once: the values are flattened on a worker, and calls that follow one another closely share one task.
  void accept(std::string name, EventValues values);

  const std::unique_ptr<OrreloComponent> component;
  const OLSEventMapper eventMapper{};

 private:
  /// What only the moment of the call knows, with values as the host gave them.
  struct Accepted {
    std::optional<std::string> userId;
    std::string name;
    EventValues values;
    Date time;
  };

  void storeAccepted();
  void store(Event event);

  std::mutex mutex_;
  std::vector<Accepted> accepted_;
  bool isScheduled_ = false;
  reactive::DisposeBag disposeBag;
};

}  // namespace orrelo
