#pragma once

#include "http/Reply.h"
#include "scenario/Campaigns.h"
#include "scenario/Referrals.h"
#include "scenario/Scenario.h"
#include "scenario/Wallets.h"
#include "store/EventStore.h"

#include <httplib.h>
#include <string>
#include <vector>

namespace orrelo::devservice {

/// Answers everything below `/orreloservice/sdk/<appKey>`, the images of the scenario below `/images`, its
/// web pages below `/pages`, pictures of barcodes below `/barcodes`, and the store's lookup.
class ServiceRoutes {
 public:
  ServiceRoutes(EventStore& store, UserDatabase& users, Wallets& wallets, const Scenario& scenario);

  Reply answer(const httplib::Request& request);

 private:
  /// A request with its parsed path.
  struct Call {
    std::string appKey;
    /// The path after the app key, starting with a slash.
    std::string path;
    const httplib::Request& http;
    /// The path parts that match the route's "*".
    std::vector<std::string> parts = {};
  };
  /// A path and the one method that it takes. Each "*" matches one part of the path.
  struct Route {
    const char* method;
    const char* path;
    Reply (ServiceRoutes::*handler)(const Call&);
    /// Requests without the header "buid" are refused.
    bool needsUser = false;
  };
  static const std::vector<Route>& table();

  Reply config(const Call& call);
  Reply receiveEvent(const Call& call);
  Reply receiveEvents(const Call& call);
  Reply saveToken(const Call& call);
  static Caller callerOf(const Call& call);
  Reply listCampaigns(const Call& call);
  Reply campaign(const Call& call);
  Reply participate(const Call& call);
  Reply verifyCode(const Call& call);
  Reply authorizeCode(const Call& call);
  Reply floatingButton(const Call& call);
  Reply messages(const Call& call);
  Reply pointBalance(const Call& call);
  Reply pointHistory(const Call& call);
  Reply rewardCounts(const Call& call);
  Reply vouchers(const Call& call);
  Reply issueVoucher(const Call& call);
  Reply image(const std::string& name) const;
  Reply page(const std::string& name) const;
  Reply lookup() const;
  Reply store(const Call& call, const std::vector<IncomingEvent>& events);

  EventStore& eventStore_;
  const Scenario& scenario_;
  Wallets& wallets_;
  ReferralBook referralBook_;
  Campaigns campaigns_;
  Referrals referrals_;
};

}  // namespace orrelo::devservice
