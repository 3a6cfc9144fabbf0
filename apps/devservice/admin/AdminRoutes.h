#pragma once

#include "faults/FaultBook.h"
#include "http/Reply.h"
#include "http/RequestLog.h"
#include "scenario/Scenario.h"
#include "scenario/Wallets.h"
#include "store/EventStore.h"
#include "store/NotificationBook.h"
#include "store/UserDatabase.h"

#include <httplib.h>
#include <string>

namespace orrelo::devservice {

/// Answers the admin page at "/" and its API below "/admin/".
class AdminRoutes {
 public:
  AdminRoutes(const EventStore& store, UserDatabase& users, Wallets& wallets, const Scenario& scenario,
              const RequestLog& requests, FaultBook& faults);

  static bool isAdmin(const httplib::Request& request);
  Reply answer(const httplib::Request& request);

 private:
  Reply state(const httplib::Request& request) const;
  Reply wallet(const httplib::Request& request);
  Reply notifications(const httplib::Request& request);
  Reply listFaults() const;
  Reply orderFault(const std::string& body);
  Reply clearFault(const std::string& id);

  const EventStore& store_;
  NotificationBook notifications_;
  Wallets& wallets_;
  const Scenario& scenario_;
  const RequestLog& requests_;
  FaultBook& faults_;
};

}  // namespace orrelo::devservice
