#include "base/preconditionFailure.h"
#include "events/EventDao.h"
#include "support/ExplanationCapture.h"
#include "support/TestPlatform.h"

#include <SQLiteCpp/SQLiteCpp.h>
#include <gmock/gmock.h>

namespace orrelo::test {
namespace {

class EventDaoTest : public testing::TestWithParam<EventTimeStorage> {
 protected:
  EventDaoTest()
      : database_(Platform::current().eventDatabases->open("store", GetParam())),
        dao_(database_, GetParam()) {}

  template <class T>
  std::variant<std::monostate, T, Error> result(const reactive::Observable<T>& stream) {
    std::variant<std::monostate, T, Error> result;
    stream.subscribe({.onNext = [&](const T& element) { result = element; },
                      .onError = [&](const Error& error) { result = error; }});
    platform_.loop->run();
    return result;
  }

  void insert(const Event& event) {
    bool isStored = false;
    dao_.insert(event, false, [&](const auto& result) { isStored = result.index() == 0; });
    EXPECT_FALSE(isStored);
    platform_.loop->run();
    EXPECT_TRUE(isStored);
  }

  std::vector<Event> stored(std::size_t limit) {
    return *std::get<1>(result(dao_.fetchOldest(limit, scheduler_)));
  }

  Event event(const std::string& name, std::chrono::microseconds offset) {
    return {Platform::current().random->uuid(),
            "유저",
            name,
            {{"키", "값\n\"/"}, {"a", ""}},
            platform_.clock->now() + offset};
  }

  TestPlatform platform_;
  std::shared_ptr<EventDatabase> database_;
  EventDao dao_;
  const reactive::SchedulerPtr scheduler_ =
      std::make_shared<reactive::ConcurrentDispatchQueueScheduler>(QualityOfService::utility);
};

INSTANTIATE_TEST_SUITE_P(BothForms, EventDaoTest,
                         testing::Values(EventTimeStorage::text, EventTimeStorage::date),
                         [](const auto& form) {
                           return form.param == EventTimeStorage::text ? "Text" : "Date";
                         });

TEST_P(EventDaoTest, GivesBackWhatWasInsertedOldestFirst) {
  const auto later = event("later", std::chrono::seconds(2));
  auto earlier = event("earlier", std::chrono::seconds(1));
  earlier.userId.reset();
  insert(later);
  insert(earlier);
  EXPECT_THAT(stored(10), testing::ElementsAre(earlier, later));
  EXPECT_THAT(stored(1), testing::ElementsAre(earlier));

  std::vector<EventRow> rows;
  database_->fetchOldest(1, [&](const auto& found) { rows = std::get<0>(found); });
  platform_.loop->run();
  EXPECT_EQ(rows.at(0).eventValues, std::string("{\n  \"a\" : \"\",\n  \"키\" : \"값\\n\\\"/\"\n}"));
}

TEST_P(EventDaoTest, ADeletionFromABrokenStoreEndsWithTheProtocolsTextAndARefusedOneWithTheStores) {
  const auto stored = event("e", {});
  insert(stored);
  const auto failures = [&] {
    std::vector<std::string> texts;
    for (const auto& deletion :
         {dao_.removeUpTo(platform_.clock->now()), dao_.remove(std::vector<Event>{stored})}) {
      texts.push_back(std::get<2>(result(deletion)).description());
    }
    return texts;
  };
  const ExplanationCapture log;
  SQLite::Database other(database_->location(), SQLite::OPEN_READWRITE);
  other.exec("BEGIN IMMEDIATE");
  const auto refusal = testing::StartsWith("SQLite.busy");
  EXPECT_THAT(failures(), testing::ElementsAre(refusal, refusal));
  EXPECT_THAT(log.lines(), testing::IsEmpty());
  other.exec("ROLLBACK");
  other.exec("CREATE TRIGGER kept BEFORE DELETE ON events BEGIN SELECT zeroblob(3000000000); END");
  const std::string stated =
      "CoreDataError.invalidArgument(message: \"batch delete result does not have objectIds\")";
  EXPECT_THAT(failures(), testing::Each(stated));
  EXPECT_THAT(log.lines(),
              testing::Each(testing::HasSubstr("The event store deleted nothing: SQLite.tooBig")));
}

TEST_P(EventDaoTest, RemovesByIdInListsAndByAge) {
  std::vector<Event> events;
  for (int i = 0; i < 5; ++i) {
    events.push_back(event("e", std::chrono::seconds(i)));
    insert(events.back());
  }
  EXPECT_EQ(result(dao_.remove(events[2])).index(), 1u);
  const auto missing = result(dao_.remove(events[2]));
  ASSERT_EQ(missing.index(), 2u);
  EXPECT_EQ(std::get<2>(missing).description(),
            "CoreDataError.invalidArgument(message: \"batch delete result does not have objectId\")");
  EXPECT_EQ(result(dao_.remove(std::vector<Event>{events[2], events[4]})).index(), 1u);
  EXPECT_EQ(result(dao_.removeUpTo(events[0].eventTime)).index(), 1u);
  EXPECT_THAT(stored(10), testing::ElementsAre(events[1], events[3]));
  EXPECT_EQ(result(dao_.removeUpTo(events[3].eventTime)).index(), 1u);
  EXPECT_THAT(stored(10), testing::IsEmpty());
}

TEST_P(EventDaoTest, ARowThatIsNoEventStopsTheProcess) {
  const bool asText = GetParam() == EventTimeStorage::text;
  const StoredTime time = asText ? StoredTime("2024-01-02T03:04:05") : StoredTime(Date::fromSeconds(1));
  const EventRow whole{Uuid().text(), "u", "e", time, "{}"};
  std::vector<EventRow> broken(7, whole);
  broken[0].eventId.reset();
  broken[1].eventId = "no uuid";
  broken[2].eventName.reset();
  broken[3].eventTime = {};
  broken[4].eventTime = asText ? StoredTime("yesterday") : StoredTime();
  broken[5].eventValues.reset();
  broken[6].eventValues = "[]";

  // A handler that throws turns the stop into an error of the stream.
  std::string message;
  setPreconditionFailureHandler([&](std::string_view text) {
    message = text;
    throw std::runtime_error("stopped");
  });
  for (std::size_t i = 0; i < broken.size(); ++i) {
    message.clear();
    const auto store = Platform::current().eventDatabases->open("broken" + std::to_string(i), GetParam());
    store->insert(broken[i], [](const auto&) {});
    EXPECT_EQ(result(EventDao(store, GetParam()).fetchOldest(10, scheduler_)).index(), 2u);
    EXPECT_EQ(message, std::string(asText ? "EventMappingError" : "BIEventMappingError") +
                           ".entityToDtoMappingFailed(message: \"Some of required property is nil\") in " +
                           store->location())
        << "row " << i;
  }
  setPreconditionFailureHandler({});
}

}  // namespace
}  // namespace orrelo::test
