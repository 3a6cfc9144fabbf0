#include "store/ReferralBook.h"

#include <stdexcept>
#include <string_view>

namespace orrelo::devservice {

namespace {

constexpr int mostAttempts = 100;

constexpr auto referralSchema = R"sql(
  CREATE TABLE IF NOT EXISTS codes(
    app_key TEXT NOT NULL,
    user_id TEXT NOT NULL,
    code TEXT NOT NULL,
    PRIMARY KEY(app_key, user_id),
    UNIQUE(app_key, code)) WITHOUT ROWID;
  CREATE TABLE IF NOT EXISTS redemptions(
    app_key TEXT NOT NULL,
    campaign TEXT NOT NULL,
    user_id TEXT NOT NULL,
    inviter TEXT NOT NULL,
    PRIMARY KEY(app_key, campaign, user_id)) WITHOUT ROWID;
  CREATE INDEX IF NOT EXISTS redemptions_of_inviter ON redemptions(app_key, campaign, inviter);
)sql";

/// Computed from the user's name, so that a session that is played again has the same codes.
std::string codeFor(const WalletOwner& user, int attempt) {
  // Digits and letters that people confuse are left out.
  constexpr std::string_view digits = "23456789ABCDEFGHJKLMNPQRSTUVWXYZ";
  constexpr int length = 8;
  std::uint64_t hash = 0xCBF29CE484222325U;
  for (const char byte : user.appKey + '\0' + user.userId + '\0' + std::to_string(attempt)) {
    hash = (hash ^ static_cast<unsigned char>(byte)) * 0x100000001B3U;
  }
  std::string code;
  // The upper bits depend on all bytes.
  hash >>= 64U - 5U * length;
  for (int place = 0; place < length; ++place, hash >>= 5U) code += digits[hash & 31U];
  return code;
}

}  // namespace

ReferralBook::ReferralBook(UserDatabase& users) : users_(users) {
  users_.use([](SQLite::Database& database) { database.exec(referralSchema); });
}

std::string ReferralBook::codeOf(const WalletOwner& user) {
  return users_.use([&](SQLite::Database& database) {
    SQLite::Statement select(database, "SELECT code FROM codes WHERE app_key = ?1 AND user_id = ?2");
    select.bind(1, user.appKey);
    select.bind(2, user.userId);
    if (select.executeStep()) return select.getColumn(0).getString();
    for (int attempt = 0; attempt < mostAttempts; ++attempt) {
      auto code = codeFor(user, attempt);
      SQLite::Statement insert(database,
                               "INSERT INTO codes(app_key, user_id, code) VALUES(?1, ?2, ?3) "
                               "ON CONFLICT(app_key, code) DO NOTHING");
      insert.bind(1, user.appKey);
      insert.bind(2, user.userId);
      insert.bind(3, code);
      // Nothing is inserted if another user has this code.
      if (insert.exec() == 1) return code;
    }
    throw std::runtime_error("no invitation code is free");
  });
}

std::optional<std::string> ReferralBook::ownerOf(const std::string& appKey, const std::string& code) const {
  return users_.use([&](SQLite::Database& database) {
    SQLite::Statement select(database, "SELECT user_id FROM codes WHERE app_key = ?1 AND code = ?2");
    select.bind(1, appKey);
    select.bind(2, code);
    return select.executeStep() ? std::optional(select.getColumn(0).getString()) : std::nullopt;
  });
}

bool ReferralBook::hasRedeemed(const WalletOwner& user, const std::string& campaign) const {
  return users_.use([&](SQLite::Database& database) {
    SQLite::Statement select(
        database, "SELECT 1 FROM redemptions WHERE app_key = ?1 AND campaign = ?2 AND user_id = ?3");
    select.bind(1, user.appKey);
    select.bind(2, campaign);
    select.bind(3, user.userId);
    return select.executeStep();
  });
}

void ReferralBook::redeem(const UserDatabase::Change&, const WalletOwner& user, const std::string& campaign,
                          const std::string& inviter) {
  users_.use([&](SQLite::Database& database) {
    SQLite::Statement insert(
        database, "INSERT INTO redemptions(app_key, campaign, user_id, inviter) VALUES(?1, ?2, ?3, ?4)");
    insert.bind(1, user.appKey);
    insert.bind(2, campaign);
    insert.bind(3, user.userId);
    insert.bind(4, inviter);
    insert.exec();
  });
}

std::int64_t ReferralBook::friendsOf(const WalletOwner& user, const std::string& campaign) const {
  return users_.use([&](SQLite::Database& database) {
    SQLite::Statement select(
        database, "SELECT count(*) FROM redemptions WHERE app_key = ?1 AND campaign = ?2 AND inviter = ?3");
    select.bind(1, user.appKey);
    select.bind(2, campaign);
    select.bind(3, user.userId);
    select.executeStep();
    return select.getColumn(0).getInt64();
  });
}

}  // namespace orrelo::devservice
