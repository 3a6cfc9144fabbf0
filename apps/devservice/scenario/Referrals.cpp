#include "scenario/Referrals.h"

#include "JsonText.h"

#include <algorithm>
#include <nlohmann/json.hpp>

namespace orrelo::devservice {

using nlohmann::json;

namespace {

/// The code in a request's body; absent if the body has none.
std::optional<std::string> codeIn(const std::string& body) {
  const auto request = json::parse(body, nullptr, false);
  return request.is_object() ? stringAt(request, "code") : std::nullopt;
}

/// People may type a code in lower case, and paste it with blanks or a line break around it.
std::string normalized(const std::string& code) {
  constexpr auto blanks = " \t\r\n";
  const auto first = code.find_first_not_of(blanks);
  if (first == std::string::npos) return {};
  auto result = code.substr(first, code.find_last_not_of(blanks) - first + 1);
  std::ranges::transform(result, result.begin(),
                         [](char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; });
  return result;
}

Reply noCode() {
  return errorReply(400, "the body must be an object with the string \"code\"");
}

Reply noReferral() {
  return errorReply(404, "the scenario has no such campaign with a \"referral\"");
}

json messageOrNull(const std::optional<std::string>& message) {
  return message ? json(*message) : json();
}

/// The reply to an authorization. Clients need its "reward_message" also when there is no reward.
Reply refused(const std::string& message) {
  return jsonReply(200, {{"result", false},
                         {"message", message},
                         {"reward_message", {{"title", ""}, {"body", ""}, {"button_text", ""}}}});
}

}  // namespace

Referrals::Referrals(UserDatabase& users, Wallets& wallets, ReferralBook& book, Campaigns& campaigns)
    : users_(users), wallets_(wallets), book_(book), campaigns_(campaigns) {}

Referrals::Finding Referrals::find(const Caller& caller, const std::string& campaign,
                                   const std::string& code) const {
  const auto wanted = normalized(code);
  if (wanted.empty()) return {{}, "초대 코드를 입력해 주세요."};
  if (book_.hasRedeemed({caller.appKey, caller.userId}, campaign)) {
    return {{}, "이미 친구의 초대 코드를 입력했어요."};
  }
  auto inviter = book_.ownerOf(caller.appKey, wanted);
  if (!inviter) return {{}, "없는 초대 코드예요. 다시 확인해 주세요."};
  if (*inviter == caller.userId) return {{}, "내 초대 코드는 입력할 수 없어요."};
  return {*std::move(inviter), std::nullopt};
}

Reply Referrals::verify(const Caller& caller, const std::string& campaign, const std::string& body) const {
  const auto file = campaigns_.load(caller, campaign);
  if (!file || file->referral() == nullptr) return noReferral();
  const auto code = codeIn(body);
  if (!code) return noCode();
  const auto found = find(caller, campaign, *code);
  return jsonReply(200, {{"result", !found.refusal}, {"message", messageOrNull(found.refusal)}});
}

Reply Referrals::authorize(const Caller& caller, const std::string& campaign, const std::string& body) {
  const auto file = campaigns_.load(caller, campaign);
  const auto* const referral = file ? file->referral() : nullptr;
  if (referral == nullptr) return noReferral();
  const auto code = codeIn(body);
  if (!code) return noCode();

  UserDatabase::Change change(users_);
  const auto found = find(caller, campaign, *code);
  if (found.refusal) return refused(*found.refusal);
  const Caller inviter{caller.appKey, found.inviter, caller.serviceUrl};
  auto problem = wallets_.apply(change, caller, referral->gives);
  if (!problem) problem = wallets_.apply(change, inviter, referral->givesInviter);
  if (problem) {
    auto reply = refused("지금은 리워드를 드릴 수 없어요.");
    reply.headers.emplace_back("Orrelo-Note", *problem);
    return reply;
  }
  book_.redeem(change, {caller.appKey, caller.userId}, campaign, found.inviter);
  campaigns_.enter(change, caller, campaign, "redeem", referral->to);
  change.commit();
  return jsonReply(200,
                   {{"result", true}, {"message", nullptr}, {"reward_message", referral->rewardMessage}});
}

}  // namespace orrelo::devservice
