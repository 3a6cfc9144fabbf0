#pragma once

#include "EventStore.h"
#include "Reply.h"
#include "Scenario.h"

#include <httplib.h>
#include <string>
#include <vector>

namespace orrelo::devservice {

/// Answers everything below `/orreloservice/sdk/<appKey>`.
class ServiceRoutes {
 public:
  ServiceRoutes(EventStore& store, const Scenario& scenario);

  Reply answer(const httplib::Request& request);

 private:
  /// A request with its path taken apart.
  struct Call {
    std::string appKey;
    /// What follows the app key, with its slash.
    std::string path;
    const httplib::Request& http;
  };
  /// A path takes one method; a new path is one more row.
  struct Route {
    const char* method;
    const char* path;
    Reply (ServiceRoutes::*handler)(const Call&);
  };
  static const std::vector<Route>& table();

  Reply config(const Call& call);
  Reply receiveEvent(const Call& call);
  Reply receiveEvents(const Call& call);
  Reply saveToken(const Call& call);
  Reply store(const Call& call, const std::vector<IncomingEvent>& events);

  EventStore& eventStore;
  const Scenario& scenario;
};

}  // namespace orrelo::devservice
