#include "store/WalletBook.h"

#include <algorithm>

namespace orrelo::devservice {

namespace {

constexpr auto walletSchema = R"sql(
  CREATE TABLE IF NOT EXISTS wallets(
    app_key TEXT NOT NULL,
    user_id TEXT NOT NULL,
    points INTEGER NOT NULL,
    tickets INTEGER NOT NULL,
    revision INTEGER NOT NULL,
    PRIMARY KEY(app_key, user_id)) WITHOUT ROWID;
  CREATE INDEX IF NOT EXISTS wallets_by_revision ON wallets(revision);
  CREATE TABLE IF NOT EXISTS movements(
    id INTEGER PRIMARY KEY AUTOINCREMENT,
    app_key TEXT NOT NULL,
    user_id TEXT NOT NULL,
    title TEXT NOT NULL,
    body TEXT NOT NULL,
    date TEXT NOT NULL,
    amount INTEGER NOT NULL);
  CREATE INDEX IF NOT EXISTS movements_of_user ON movements(app_key, user_id, id);
  CREATE TABLE IF NOT EXISTS vouchers(
    id INTEGER PRIMARY KEY AUTOINCREMENT,
    app_key TEXT NOT NULL,
    user_id TEXT NOT NULL,
    tag TEXT NOT NULL,
    title TEXT NOT NULL,
    date TEXT NOT NULL,
    state TEXT NOT NULL);
  CREATE INDEX IF NOT EXISTS vouchers_of_user ON vouchers(app_key, user_id, id);
)sql";

constexpr auto summaryColumns = R"sql(
  points, tickets, (SELECT count(*) FROM vouchers WHERE vouchers.app_key = wallets.app_key
    AND vouchers.user_id = wallets.user_id AND state IN ('idle', 'downloaded')))sql";

/// Larger than that of each wallet, so that it orders the wallets by their last change.
constexpr auto nextRevision = "(SELECT coalesce(max(revision), 0) + 1 FROM wallets)";

constexpr auto ofUser = " WHERE app_key = ?1 AND user_id = ?2";

/// A statement about one user, whose parameters 1 and 2 name the user.
SQLite::Statement about(SQLite::Database& database, const WalletOwner& owner, const std::string& sql) {
  SQLite::Statement statement(database, sql);
  statement.bind(1, owner.appKey);
  statement.bind(2, owner.userId);
  return statement;
}

WalletSummary readSummary(const SQLite::Statement& row, int first) {
  return {row.getColumn(first).getInt64(), row.getColumn(first + 1).getInt64(),
          row.getColumn(first + 2).getInt64()};
}

std::optional<std::string> balanceProblem(const std::string& what, std::int64_t has, std::int64_t change) {
  const auto balance = has + change;
  if (balance >= 0 && balance <= largestBalance) return std::nullopt;
  return "the user has " + std::to_string(has) + " " + what + " and cannot have " + std::to_string(balance);
}

}  // namespace

WalletBook::WalletBook(UserDatabase& users) : users_(users) {
  users_.use([](SQLite::Database& database) { database.exec(walletSchema); });
}

void WalletBook::open(const UserDatabase::Change&, const WalletOwner& owner,
                      const WalletBeginning& beginning) {
  users_.use([&](SQLite::Database& database) {
    std::int64_t points = 0;
    // The newest is added last and gets the largest id.
    for (auto movement = beginning.movements.rbegin(); movement != beginning.movements.rend(); ++movement) {
      points += movement->amount;
      addMovement(owner, *movement);
    }
    addVouchers(owner, beginning.vouchers);
    auto insert = about(
        database, owner,
        std::string(
            "INSERT INTO wallets(app_key, user_id, points, tickets, revision) VALUES(?1, ?2, ?3, ?4, ") +
            nextRevision + ")");
    insert.bind(3, points);
    insert.bind(4, beginning.tickets);
    insert.exec();
  });
}

std::optional<std::string> WalletBook::problemWith(const WalletOwner& owner,
                                                   const WalletChange& wanted) const {
  const auto has = summary(owner);
  if (auto problem = balanceProblem("points", has.points, wanted.points)) return problem;
  if (auto problem = balanceProblem("tickets", has.tickets, wanted.tickets)) return problem;
  if (wanted.redeemed > has.usableVouchers) {
    return "the user has " + std::to_string(has.usableVouchers) + " usable vouchers";
  }
  // Used, expired and canceled vouchers stay for ever and must not prevent new ones.
  const auto added = std::count_if(wanted.vouchers.begin(), wanted.vouchers.end(),
                                   [](const Voucher& each) { return isUsable(each.state); });
  if (has.usableVouchers + added > mostVouchers) {
    return "a user has at most " + std::to_string(mostVouchers) + " usable vouchers";
  }
  return std::nullopt;
}

std::optional<std::string> WalletBook::apply(const UserDatabase::Change&, const WalletOwner& owner,
                                             const WalletChange& wanted, const std::string& date) {
  return users_.use([&](SQLite::Database& database) {
    auto problem = problemWith(owner, wanted);
    if (problem) return problem;
    auto update =
        about(database, owner,
              std::string("UPDATE wallets SET points = points + ?3, tickets = tickets + ?4, revision = ") +
                  nextRevision + ofUser);
    update.bind(3, wanted.points);
    update.bind(4, wanted.tickets);
    update.exec();
    if (wanted.points != 0) addMovement(owner, {0, wanted.title, wanted.body, date, wanted.points});
    addVouchers(owner, wanted.vouchers);
    if (wanted.redeemed > 0) {
      auto redeem =
          about(database, owner,
                std::string("UPDATE vouchers SET state = 'used' WHERE id IN (SELECT id FROM vouchers") +
                    ofUser + " AND state IN ('idle', 'downloaded') ORDER BY id LIMIT ?3)");
      redeem.bind(3, wanted.redeemed);
      redeem.exec();
    }
    return problem;
  });
}

void WalletBook::addMovement(const WalletOwner& owner, const PointMovement& movement) {
  users_.use([&](SQLite::Database& database) {
    auto insert = about(database, owner,
                        "INSERT INTO movements(app_key, user_id, title, body, date, amount) "
                        "VALUES(?1, ?2, ?3, ?4, ?5, ?6)");
    insert.bind(3, movement.title);
    insert.bind(4, movement.body);
    insert.bind(5, movement.date);
    insert.bind(6, movement.amount);
    insert.exec();
  });
}

void WalletBook::addVouchers(const WalletOwner& owner, const std::vector<Voucher>& vouchers) {
  for (auto voucher = vouchers.rbegin(); voucher != vouchers.rend(); ++voucher) addVoucher(owner, *voucher);
}

void WalletBook::addVoucher(const WalletOwner& owner, const Voucher& voucher) {
  users_.use([&](SQLite::Database& database) {
    auto insert = about(database, owner,
                        "INSERT INTO vouchers(app_key, user_id, tag, title, date, state) "
                        "VALUES(?1, ?2, ?3, ?4, ?5, ?6)");
    insert.bind(3, voucher.tag);
    insert.bind(4, voucher.title);
    insert.bind(5, voucher.date);
    insert.bind(6, voucher.state);
    insert.exec();
  });
}

void WalletBook::setState(const UserDatabase::Change&, const WalletOwner& owner, std::int64_t voucher,
                          const std::string& state) {
  users_.use([&](SQLite::Database& database) {
    auto update =
        about(database, owner, std::string("UPDATE vouchers SET state = ?4") + ofUser + " AND id = ?3");
    update.bind(3, voucher);
    update.bind(4, state);
    update.exec();
  });
}

std::optional<WalletSummary> WalletBook::find(const WalletOwner& owner) const {
  return users_.use([&](SQLite::Database& database) {
    auto select = about(database, owner, std::string("SELECT") + summaryColumns + " FROM wallets" + ofUser);
    return select.executeStep() ? std::optional(readSummary(select, 0)) : std::nullopt;
  });
}

std::vector<PointMovement> WalletBook::history(const WalletOwner& owner, std::int64_t page,
                                               std::int64_t pageSize) const {
  return users_.use([&](SQLite::Database& database) {
    auto select = about(database, owner,
                        std::string("SELECT id, title, body, date, amount FROM movements") + ofUser +
                            " ORDER BY id DESC LIMIT ?3 OFFSET ?4");
    select.bind(3, pageSize);
    select.bind(4, page * pageSize);
    std::vector<PointMovement> rows;
    while (select.executeStep()) {
      rows.push_back({select.getColumn(0).getInt64(), select.getColumn(1).getString(),
                      select.getColumn(2).getString(), select.getColumn(3).getString(),
                      select.getColumn(4).getInt64()});
    }
    return rows;
  });
}

std::int64_t WalletBook::historySize(const WalletOwner& owner) const {
  return users_.use([&](SQLite::Database& database) {
    auto select = about(database, owner, std::string("SELECT count(*) FROM movements") + ofUser);
    select.executeStep();
    return select.getColumn(0).getInt64();
  });
}

std::vector<Voucher> WalletBook::vouchers(const WalletOwner& owner) const {
  return users_.use([&](SQLite::Database& database) {
    auto select =
        about(database, owner,
              std::string("SELECT id, tag, title, date, state FROM vouchers") + ofUser + " ORDER BY id DESC");
    std::vector<Voucher> rows;
    while (select.executeStep()) {
      rows.push_back({select.getColumn(0).getInt64(), select.getColumn(1).getString(),
                      select.getColumn(2).getString(), select.getColumn(3).getString(),
                      select.getColumn(4).getString()});
    }
    return rows;
  });
}

std::vector<std::pair<WalletOwner, WalletSummary>> WalletBook::latest(int limit) const {
  return users_.use([&](SQLite::Database& database) {
    SQLite::Statement select(database, std::string("SELECT app_key, user_id,") + summaryColumns +
                                           " FROM wallets ORDER BY revision DESC LIMIT ?1");
    select.bind(1, limit);
    std::vector<std::pair<WalletOwner, WalletSummary>> wallets;
    while (select.executeStep()) {
      wallets.emplace_back(WalletOwner{select.getColumn(0).getString(), select.getColumn(1).getString()},
                           readSummary(select, 2));
    }
    return wallets;
  });
}

}  // namespace orrelo::devservice
