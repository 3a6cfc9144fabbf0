#pragma once

#include "http/Reply.h"
#include "scenario/Caller.h"
#include "scenario/Campaigns.h"
#include "scenario/Wallets.h"
#include "store/ReferralBook.h"

#include <optional>
#include <string>

namespace orrelo::devservice {

/// Redeems the invitation codes of friends, in campaigns whose file has a "referral". Each user does so once
/// in a campaign.
class Referrals {
 public:
  Referrals(UserDatabase& users, Wallets& wallets, ReferralBook& book, Campaigns& campaigns);

  /// Tells whether the user may redeem the code in the body.
  Reply verify(const Caller& caller, const std::string& campaign, const std::string& body) const;
  /// Redeems the code in the body, if the user may, and gives both users what the campaign's file says.
  /// Either all of it happens or nothing. If a wallet does not allow it, the header "Orrelo-Note" has the
  /// reason.
  Reply authorize(const Caller& caller, const std::string& campaign, const std::string& body);

 private:
  /// A code's owner, or why the caller may not redeem it.
  struct Finding {
    std::string inviter;
    std::optional<std::string> refusal;
  };
  Finding find(const Caller& caller, const std::string& campaign, const std::string& code) const;

  UserDatabase& users_;
  Wallets& wallets_;
  ReferralBook& book_;
  Campaigns& campaigns_;
};

}  // namespace orrelo::devservice
