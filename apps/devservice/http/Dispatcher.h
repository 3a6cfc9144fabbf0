#pragma once

#include "ServiceRoutes.h"
#include "admin/AdminRoutes.h"
#include "faults/FaultBook.h"
#include "http/RequestLog.h"
#include "scenario/Wallets.h"

#include <httplib.h>

namespace orrelo::devservice {

/// Passes each request to the routes that answer it, and applies the faults.
class Dispatcher {
 public:
  Dispatcher(EventStore& store, UserDatabase& users, const Scenario& scenario, RequestLog& requests,
             FaultBook& faults);

  void handle(const httplib::Request& request, httplib::Response& response);

 private:
  void dispatch(const httplib::Request& request, httplib::Response& response);
  void answerWith(const Fault& fault, const httplib::Request& request, httplib::Response& response);

  Wallets wallets_;
  ServiceRoutes service_;
  AdminRoutes admin_;
  RequestLog& requests_;
  FaultBook& faults_;
};

}  // namespace orrelo::devservice
