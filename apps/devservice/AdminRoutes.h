#pragma once

#include "EventStore.h"
#include "FaultBook.h"
#include "Reply.h"
#include "RequestLog.h"
#include "Scenario.h"

#include <httplib.h>
#include <string>

namespace orrelo::devservice {

/// The page at "/" and what stands behind it below "/admin/".
class AdminRoutes {
 public:
  AdminRoutes(const EventStore& store, const Scenario& scenario, const RequestLog& requests,
              FaultBook& faults);

  static bool isAdmin(const httplib::Request& request);
  Reply answer(const httplib::Request& request);

 private:
  Reply state(const httplib::Request& request) const;
  Reply listFaults() const;
  Reply orderFault(const std::string& body);
  Reply clearFault(const std::string& id);

  const EventStore& store;
  const Scenario& scenario;
  const RequestLog& requests;
  FaultBook& faults;
};

}  // namespace orrelo::devservice
