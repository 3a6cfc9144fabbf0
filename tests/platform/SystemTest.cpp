#include "platform/posix/ForkedChild.h"
#include "platform/posix/PosixDevice.h"
#include "platform/posix/PosixDirectories.h"
#include "platform/posix/SystemRandom.h"
#include "support/TemporaryFolder.h"

#include <orrelo/platform/Clock.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <fstream>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <optional>
#include <set>
#include <sys/wait.h>
#include <unistd.h>

namespace orrelo::test {
namespace {

/// Sets a variable of the environment, or removes it, until the end of the test.
class Variable {
 public:
  Variable(const char* name, const char* value) : name_(name) {
    if (const char* before = std::getenv(name)) before_ = before;
    assign(value);
  }
  ~Variable() { assign(before_ ? before_->c_str() : nullptr); }
  Variable(const Variable&) = delete;
  Variable& operator=(const Variable&) = delete;

 private:
  void assign(const char* value) {
    if (value != nullptr) {
      setenv(name_, value, 1);
    } else {
      unsetenv(name_);
    }
  }

  const char* name_;
  std::optional<std::string> before_;
};

HostApplication host(const std::string& identifier, const std::filesystem::path& dataDirectory = {}) {
  HostApplication stated;
  stated.bundleIdentifier = identifier;
  stated.dataDirectory = dataDirectory;
  return stated;
}

TEST(SystemRandomTest, neverRepeatsItself) {
  SystemRandom random;
  std::set<Uuid> seen;
  for (int n = 0; n < 1000; ++n) EXPECT_TRUE(seen.insert(random.uuid()).second);
  std::array<std::uint8_t, 10'000> large{};
  random.fill(large);
  EXPECT_GT(std::count_if(large.end() - 1000, large.end(), [](auto byte) { return byte != 0; }), 900);
}

/// `_Fork` calls no handlers, unlike `fork`.
class ForkTest : public ::testing::TestWithParam<pid_t (*)()> {};
INSTANTIATE_TEST_SUITE_P(, ForkTest, ::testing::Values(&fork, &_Fork));

TEST_P(ForkTest, givesEachProcessBytesAndAGenerationOfItsOwn) {
  struct Report {
    Uuid::Bytes bytes;
    std::uint64_t generation;
    bool isChild;
  };
  SystemRandom random;
  OwnerProcess owner;
  EXPECT_FALSE(owner.isParent()) << "nobody owns it yet";
  EXPECT_TRUE(owner.claim());
  const auto report = [&] {
    return Report{random.uuid().bytes(), processGeneration(), owner.isParent() && !owner.claim()};
  };
  const auto before = report();
  EXPECT_FALSE(before.isChild);
  std::array<int, 2> pipeEnds{};
  ASSERT_EQ(pipe(pipeEnds.data()), 0);
  // The child reports, then its own child.
  const auto child = GetParam()();
  if (child == 0) {
    auto mine = report();
    bool isWritten = write(pipeEnds[1], &mine, sizeof(mine)) == ssize_t{sizeof(mine)};
    const auto grandchild = GetParam()();
    if (grandchild != 0) _exit(waitpid(grandchild, nullptr, 0) == grandchild && isWritten ? 0 : 1);
    mine = report();
    isWritten = write(pipeEnds[1], &mine, sizeof(mine)) == ssize_t{sizeof(mine)};
    _exit(isWritten ? 0 : 1);
  }
  std::set<Uuid::Bytes> bytes{before.bytes, report().bytes};
  std::set<std::uint64_t> generations{before.generation, report().generation};
  for (int n = 0; n < 2; ++n) {
    Report got{};
    ASSERT_EQ(read(pipeEnds[0], &got, sizeof(got)), ssize_t{sizeof(got)});
    EXPECT_TRUE(got.isChild);
    bytes.insert(got.bytes);
    generations.insert(got.generation);
  }
  EXPECT_EQ(bytes.size(), 4U);
  EXPECT_EQ(generations.size(), 3U);
  waitpid(child, nullptr, 0);
  close(pipeEnds[0]);
  close(pipeEnds[1]);
}

TEST(PosixDeviceTest, tellsTheVersionThatTheSystemStates) {
  const TemporaryFolder folder;
  const auto file = folder / "os-release";
  const auto version = [&](const std::string& text) {
    std::ofstream(file) << text;
    return PosixDevice(file).systemVersion();
  };
  EXPECT_EQ(version("NAME=x\nVERSION_ID=\"12.5\"\n"), "12.5");
  EXPECT_EQ(version("VERSION_ID=12"), "12");
  EXPECT_EQ(version("VERSION_ID='12'\n"), "12");
  const auto kernel = PosixDevice(folder / "missing").systemVersion();
  EXPECT_FALSE(kernel.empty());
  EXPECT_EQ(version("OLD_VERSION_ID=12\nVERSION_ID=\"\"\n"), kernel);
}

TEST(PosixDeviceTest, readsTheLocaleFromTheEnvironment) {
  const auto locale = [](const char* all, const char* messages, const char* lang) {
    const Variable first("LC_ALL", all);
    const Variable second("LC_MESSAGES", messages);
    const Variable third("LANG", lang);
    return PosixDevice().localeIdentifier();
  };
  EXPECT_EQ(locale(nullptr, nullptr, "ko_KR.UTF-8"), "ko_KR");
  EXPECT_EQ(locale("", "de_DE@euro", "ko_KR"), "de_DE");
  EXPECT_EQ(locale("fr", "de_DE", "ko_KR"), "fr");
  EXPECT_EQ(locale("C.UTF-8", nullptr, "ko_KR"), "en_US");
  EXPECT_EQ(locale(nullptr, "POSIX", nullptr), "en_US");
  EXPECT_EQ(locale(nullptr, nullptr, nullptr), "en_US");
}

TEST(PosixDirectoriesTest, makesTheFoldersThatTheHostOrTheEnvironmentNames) {
  const TemporaryFolder folder;
  const Variable home("HOME", folder.path().c_str());
  const Variable data("XDG_DATA_HOME", "relative");
  const Variable cache("XDG_CACHE_HOME", (folder / "caches").c_str());
  const PosixDirectories chosen(host("../com.example"));
  EXPECT_EQ(chosen.data(), folder / ".local/share/%2E.%2Fcom.example");
  EXPECT_EQ(chosen.cache(), folder / "caches/%2E.%2Fcom.example");
  EXPECT_TRUE(std::filesystem::is_directory(chosen.data()));
  EXPECT_EQ(std::filesystem::status(chosen.data()).permissions(), std::filesystem::perms::owner_all);
  EXPECT_EQ(PosixDirectories(host("", folder / "d")).data(), folder / "d");
}

TEST(PlatformTest, servesPosixDefaultsUntilAnotherIsInstalled) {
  const TemporaryFolder folder;
  const Variable data("XDG_DATA_HOME", folder.path().c_str());
  const auto& defaults = Platform::current();
  EXPECT_EQ(defaults.mainLoop.get(), &RunLoop::main());
  EXPECT_EQ(&Platform::current(), &defaults);
  auto other = Platform::posix(host("com.example", folder.path()));
  EXPECT_EQ(other.userDefaults->suite("com.example"), nullptr);
  other.userDefaults->standard()->set("k", true);
  EXPECT_TRUE(std::filesystem::exists(folder / "defaults.sqlite"));
  EXPECT_GT(other.clock->now(), Date::fromSeconds(1'700'000'000));
  Platform::install(std::move(other));
  EXPECT_EQ(Platform::current().mainBundle->info("CFBundleIdentifier"), "com.example");
}

}  // namespace
}  // namespace orrelo::test
