#include "base/Json.h"
#include "events/EventIntake.h"
#include "events/EventMapper.h"
#include "events/KelsoInsight.h"
#include "events/OLSEventMapper.h"
#include "platform/journal/JournalFormat.h"
#include "platform/journal/JournalReader.h"
#include "support/ExplanationCapture.h"
#include "support/ServiceReplies.h"
#include "support/TestPlatform.h"

#include <orrelo/Orrelo.h>

#include <SQLiteCpp/SQLiteCpp.h>
#include <fstream>
#include <gmock/gmock.h>
#include <map>
#include <netinet/in.h>
#include <set>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

namespace orrelo::test {
namespace {

using std::chrono::milliseconds;
using std::chrono::seconds;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

TEST(EventRecordTest, KeepsEachTypeOfValueAndReadsNothingElse) {
  const EventValues values{{"array", EventArray{1, "two", EventArray{EventDictionary{{"k", nullptr}}}}},
                           {"date", Date::fromSeconds(1'700'000'000)},
                           {"dictionary", EventDictionary{{"b", 1.5}, {"a", true}}},
                           {"integer", std::int64_t{-5}},
                           {"malformed \xFF", "\xFF"},
                           {"no JSON form", EventArray{EventBytes(3), EventValue::other(0)}},
                           {"number", 0.1},
                           {"set", EventSet{1, 1, "2"}},
                           {"text", std::string(300, 'v')},
                           {"url", *Url::parse("https://a.example/b")},
                           {"uuid", Uuid::fromRandom({1, 2, 3})},
                           {"yes", false}};
  const auto id = Uuid::fromRandom({4, 5, 6});
  const auto record = EventRecord::encode(id, Date::fromSeconds(-3), "minji", "n\xFF", values);
  const auto content = EventRecord::decode(record.view());
  ASSERT_TRUE(content);
  EXPECT_EQ(content->origin, EventOrigin::host);
  EXPECT_EQ(content->event,
            (Event{id, "minji", "n\uFFFD", OLSEventMapper().map(values), Date::fromSeconds(-3)}));
  const BIEvent own{id, std::nullopt, "ol_visit", {{"b", "1"}, {"a", ""}}, Date::fromSeconds(7)};
  EXPECT_EQ(EventRecord::decode(EventRecord::encode(own).view())->event, own);

  for (std::size_t size = 0; size < record.size(); ++size) {
    EXPECT_FALSE(EventRecord::decode(record.view().substr(0, size))) << size;
  }
  EXPECT_FALSE(EventRecord::decode(std::string(record.view()) + "x"));
  std::string tooLong(record.view());
  tooLong.replace(tooLong.find("\5minji"), 1, "\x85\x80\x80\x80\x10");
  EXPECT_FALSE(EventRecord::decode(tooLong)) << "2^32 bytes more, which a size of 32 bits does not count";
  EventValues deep;
  deep["k"] = 1;
  for (int i = 0; i < 10'000; ++i) {
    EventArray outer;
    outer.push_back(std::move(deep["k"]));
    deep["k"] = std::move(outer);
  }
  EXPECT_TRUE(EventRecord::decode(EventRecord::encode(id, {}, {}, "deep", deep).view()));
}

/// The number of reading and writing system calls of the calling thread so far.
std::pair<long, long> callsOfThisThread() {
  std::ifstream counts("/proc/thread-self/io");
  std::string name;
  std::map<std::string, long> values;
  for (long value = 0; counts >> name >> value;) values[name] = value;
  return {values["syscr:"], values["syscw:"]};
}

TEST(EventIntakeOnFilesTest, ACallWritesOnceAndReadsNothing) {
  const TemporaryFolder folder;
  Platform::install(Platform::posix({.bundleIdentifier = "com.example.shop",
                                     .dataDirectory = folder.path(),
                                     .cacheDirectory = folder.path()}));
  const auto suite = Platform::current().userDefaults->suite("tamrenzo_api_storage_I'm_Ilvane");
  suite->set("ORRELO_SERVICE_URL", std::int64_t{3});
  suite->set("ORRELO_DEVELOPMENT_URL", std::string("https://localhost:1"));
  Orrelo::initialize(ORLConfig("shop"));
  Orrelo::sendEvent("first");
  const auto before = callsOfThisThread();
  constexpr int count = 200;
  for (int i = 0; i < count; ++i) Orrelo::sendEvent("e", {{"item", "blue shoes"}, {"price", 39.9}});
  const auto after = callsOfThisThread();
  constexpr long ofTheCheck = 2;  // reading the counts: the file's text and its end
  EXPECT_LE(after.first - before.first, ofTheCheck);
  EXPECT_EQ(after.second - before.second, count);
}

/// A server that accepts connections and says nothing.
struct SilentServer {
  SilentServer() {
    sockaddr_in address{
        .sin_family = AF_INET, .sin_port = 0, .sin_addr = {htonl(INADDR_LOOPBACK)}, .sin_zero = {}};
    socklen_t size = sizeof(address);
    if (bind(socket, reinterpret_cast<sockaddr*>(&address), size) != 0 || listen(socket, 8) != 0)
      std::abort();
    getsockname(socket, reinterpret_cast<sockaddr*>(&address), &size);
    url = "https://127.0.0.1:" + std::to_string(ntohs(address.sin_port));
  }
  ~SilentServer() { close(socket); }
  SilentServer(const SilentServer&) = delete;
  SilentServer& operator=(const SilentServer&) = delete;

  const int socket = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
  std::string url;
};

/// The names of the events that the journals in `folder` hold.
std::multiset<std::string> leftEvents(const std::filesystem::path& folder) {
  std::multiset<std::string> names;
  for (const auto& entry : std::filesystem::directory_iterator(folder)) {
    const auto seed = journal::seedOfName(entry.path().filename().string());
    if (!seed) continue;
    std::ifstream file(entry.path(), std::ios::binary);
    const std::string bytes(std::istreambuf_iterator<char>(file), {});
    const auto source = [&](std::size_t offset, char* to, std::size_t size) {
      return std::optional(bytes.copy(to, size, offset));
    };
    const auto content = readJournal(source, bytes.size(), *seed);
    for (const auto& live : content->live) {
      names.insert(EventRecord::decode(live.record.view())->event.eventName);
    }
  }
  return names;
}

TEST(EventIntakeOnFilesTest, AHostThatForksFirstMayReportUntilItsLastDestructor) {
  const TemporaryFolder folder;
  const SilentServer server;
  Platform::install(Platform::posix({.bundleIdentifier = "com.example.shop",
                                     .dataDirectory = folder.path(),
                                     .cacheDirectory = folder.path()}));
  const auto child = fork();
  if (child == 0) {
    struct Late {
      ~Late() { Orrelo::sendEvent("late", {{"k", 1}}); }
    };
    static const Late late;  // destroyed after the thread-local objects of the kit
    const auto suite = Platform::current().userDefaults->suite("tamrenzo_api_storage_I'm_Ilvane");
    suite->set("ORRELO_SERVICE_URL", std::int64_t{3});
    suite->set("ORRELO_DEVELOPMENT_URL", server.url);
    Orrelo::initialize(ORLConfig("shop"));
    Orrelo::setUser(ORLUser("a user whose id needs memory of its own", ORLMarketingStatus::unknown, {}));
    Orrelo::sendEvent("early", {{"k", 1}});
    std::exit(Orrelo::flush(milliseconds(10)) ? 1 : 0);  // the configuration has not answered
  }
  int status = 0;
  ASSERT_EQ(waitpid(child, &status, 0), child);
  EXPECT_EQ(status, 0);
  EXPECT_THAT(leftEvents(folder.path()), UnorderedElementsAre("ol_set_user_profile", "early", "late"));
}

// The intake is a global of the process, so every test runs in its own process (see gtest_discover_tests).
class EventIntakeTest : public testing::Test {
 protected:
  EventIntakeTest() {
    platform_.session->responder = [this](const URLRequest& request) {
      if (request.url.path().ends_with("/config")) return configReply_;
      return std::optional<URLSessionResult>();
    };
  }

  void initialize(const std::string& appKey = "shop") {
    Orrelo::initialize(ORLConfig(appKey));
    platform_.loop->run();
  }
  void report(const std::string& name) {
    Orrelo::sendEvent(name, {{"k", 1}});
    platform_.loop->run();
  }
  std::vector<std::string> stored() const {
    const auto path = (platform_.folder.path() / "OLSCoreDataEvent.sqlite").string();
    if (!std::filesystem::exists(path)) return {};
    const SQLite::Database database(path);
    SQLite::Statement rows(database, "SELECT eventName || ' of ' || userId FROM events ORDER BY rowid");
    std::vector<std::string> names;
    while (rows.executeStep()) names.push_back(rows.getColumn(0).getString());
    return names;
  }
  std::size_t waiting() const { return platform_.journal->records().size(); }
  std::size_t questions() const { return platform_.session->requestsTo("/config").size(); }
  std::optional<bool> flushed(milliseconds timeout) {
    std::optional<bool> result;
    Orrelo::flush(timeout, [&](bool isFlushed) { result = isFlushed; });
    platform_.loop->runFor(std::min<milliseconds>(timeout, seconds(30)));
    return result;
  }

  TestPlatform platform_;
  const ExplanationCapture log_;
  std::optional<URLSessionResult> configReply_ = ScriptedURLSession::reply(200, configReply());
};

TEST_F(EventIntakeTest, WhatAnEndedProcessLeavesAsksOnceAndKeepsItsUserAndTime) {
  Orrelo::setUser(ORLUser("minji", ORLMarketingStatus::unknown, {}));
  configReply_ = std::nullopt;
  initialize();
  EXPECT_TRUE(platform_.journal->isPrepared());
  for (const auto* const name : {"a", "b", "c"}) report(name);
  KelsoInsight::track("ol_visit", {});
  EXPECT_THAT(stored(), IsEmpty());
  EXPECT_EQ(waiting(), 4u);
  EXPECT_EQ(flushed(milliseconds(100)), false);
  platform_.loop->run();
  EXPECT_EQ(waiting(), 3u) << "the kit's own event asks nobody";

  platform_.journal->abandon();
  platform_.clock->advance(seconds(86'399));
  Orrelo::setUser(ORLUser("hana", ORLMarketingStatus::unknown, {}));
  platform_.loop->run();
  const auto before = questions();
  initialize("next");
  EXPECT_EQ(questions(), before + 2) << "the first fetch and one question";
  initialize("third");
  EXPECT_EQ(waiting(), 3u) << "an adopted event asks again";
  configReply_ = ScriptedURLSession::reply(200, configReply());
  initialize("fourth");
  EXPECT_THAT(stored(), ElementsAre("a of minji", "b of minji", "c of minji"));
  EXPECT_EQ(waiting(), 0u);
  EXPECT_TRUE(Orrelo::flush(milliseconds(0)));
}

TEST_F(EventIntakeTest, AnAnswerOfNoAndASecondInitializeDropWhatWaits) {
  configReply_ = std::nullopt;
  initialize();
  report("cut off");
  EXPECT_EQ(waiting(), 1u);
  configReply_ = ScriptedURLSession::reply(200, configReply(false));
  initialize("second");
  EXPECT_EQ(waiting(), 0u);
  platform_.journal->leave({EventRecord::encode({}, platform_.clock->now(), {}, "left", {}),
                            EventRecord::encode({}, platform_.clock->now(), {}, "too", {})});
  platform_.loop->runFor(seconds(61));
  report("asked");  // the configuration is no longer fresh
  EXPECT_EQ(waiting(), 0u);
  platform_.journal->refuse(EventJournal::Refusal::unwritable);
  report("not even written");
  EXPECT_THAT(stored(), IsEmpty());
  EXPECT_THAT(log_.lines(), testing::Not(Contains(HasSubstr("cannot be written"))));
  EXPECT_EQ(flushed(milliseconds(1)), true);
}

TEST_F(EventIntakeTest, ALongJournalIsStoredInOrderWithoutWhatIsTooOldOrNoEvent) {
  initialize();
  const auto record = [&](const std::string& name, seconds age = {}) {
    return EventRecord::encode(Platform::current().random->uuid(), platform_.clock->now() - age, "minji",
                               name, {});
  };
  std::vector<EventJournal::Record> records{
      record("old", seconds(86'400)), EventJournal::Record::copyOf("no event, but longer than a header")};
  std::vector<std::string> expected;
  for (int i = 100; i < 300; ++i) {
    records.push_back(record(std::to_string(i), seconds(300 - i)));
    expected.push_back(std::to_string(i) + " of minji");
  }
  platform_.journal->leave(records);
  platform_.loop->runFor(seconds(61));
  EXPECT_EQ(flushed(milliseconds(10)), true);
  EXPECT_EQ(stored(), expected);
  EXPECT_EQ(waiting(), 0u);
  EXPECT_THAT(log_.lines(), Contains(HasSubstr("its record in the journal is no event")));
}

TEST_F(EventIntakeTest, AStoreThatRefusesIsAskedAgainUntilItTakesTheEventOnce) {
  Orrelo::setUser(ORLUser("minji", ORLMarketingStatus::unknown, {}));
  initialize();
  report("first");
  {
    SQLite::Database other((platform_.folder.path() / "OLSCoreDataEvent.sqlite").string(),
                           SQLite::OPEN_READWRITE);
    other.exec("BEGIN IMMEDIATE");
    report("second");
    report("third");
    platform_.loop->runFor(seconds(3));
    EXPECT_EQ(waiting(), 2u);
    EXPECT_EQ(flushed(milliseconds(10)), false);
    other.exec("COMMIT");
  }
  report("fourth");
  EXPECT_EQ(waiting(), 3u) << "it waits behind the others";
  EXPECT_EQ(flushed(milliseconds::max()), true);
  EXPECT_EQ(waiting(), 0u);
  EXPECT_THAT(stored(),
              ElementsAre("first of minji", "second of minji", "third of minji", "fourth of minji"));
  EXPECT_THAT(log_.lines(), Contains(HasSubstr("A store refuses events for now")).Times(1));
}

TEST_F(EventIntakeTest, WithoutAJournalEventsWaitInMemoryUpToItsBound) {
  Orrelo::setUser(ORLUser("minji", ORLMarketingStatus::unknown, {}));
  configReply_ = std::nullopt;
  initialize();
  platform_.journal->refuse(EventJournal::Refusal::full);
  const std::string large(1'000'000, 'v');
  for (int i = 0; i < 17; ++i) Orrelo::sendEvent("e" + std::to_string(10 + i), {{"k", large}});
  EXPECT_THAT(log_.lines(), Contains(HasSubstr("events wait in memory alone")).Times(1));
  EXPECT_THAT(log_.lines(), Contains(HasSubstr("the 16 MiB of memory for events are full")).Times(1));
  platform_.loop->runFor(seconds(61));
  configReply_ = ScriptedURLSession::reply(200, configReply());
  platform_.journal->refuse(std::nullopt);
  report("written");
  EXPECT_EQ(stored().size(), 1u) << "the others wait for the answers to their own questions";
  while (!platform_.session->waiting.empty()) {
    platform_.session->answer(ScriptedURLSession::reply(200, configReply()));
  }
  platform_.loop->run();
  EXPECT_EQ(stored().size(), 16u) << "the written one has been delivered";
  EXPECT_TRUE(Orrelo::flush(milliseconds(0)));
}

}  // namespace
}  // namespace orrelo::test
