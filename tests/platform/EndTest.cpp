#include "platform/store/FileLock.h"
#include "support/Program.h"
#include "support/TemporaryFolder.h"

#include <dlfcn.h>
#include <gtest/gtest.h>

namespace orrelo::test {
namespace {

TEST(End, WaitsForWhatRunsAndForBlockersButNotForQueuedTasks) {
  const std::vector<std::pair<std::string, std::string>> ends{
      {"return", "running destroyed"},
      {"exit", "running destroyed"},
      {"quick_exit", "running "},
      {"_exit", ""},
      {"task", "destroyed"},
      {"completion", "stored destroyed"},
      {"blocked", "released destroyed"},
      {"forked child", "destroyedchild 3 running destroyed"}};
  for (const auto& [way, expected] : ends) {
    const TemporaryFolder folder;
    Program host({ORRELO_ENDING_HOST, folder.path().string(), way});
    EXPECT_EQ(host.wait(), 0) << way;
    EXPECT_EQ(host.output(), expected) << way;
  }
}

TEST(End, AChildLeftBehindDoesNotKeepTheRightToSend) {
  const TemporaryFolder folder;
  Program host({ORRELO_ENDING_HOST, folder.path().string(), "child left behind"});
  EXPECT_EQ(host.wait(), 0);
  const auto child = std::stoi(host.written("\n"));
  EXPECT_EQ(kill(child, 0), 0);
  EXPECT_TRUE(FileLock::acquire(folder / "store.sqlite.lock"));
  kill(child, SIGKILL);
}

TEST(End, TheLibraryStaysLoadedWhenAPluginThatUsesItIsClosed) {
  const TemporaryFolder folder;
  void* const plugin = dlopen(ORRELO_PLUGIN, RTLD_NOW | RTLD_LOCAL);
  ASSERT_NE(plugin, nullptr) << dlerror();
  const auto start = reinterpret_cast<void (*)(const char*)>(dlsym(plugin, "start"));
  ASSERT_NE(start, nullptr);
  start(folder.path().c_str());
  EXPECT_EQ(dlclose(plugin), 0);
  EXPECT_EQ(dlopen(ORRELO_PLUGIN, RTLD_NOW | RTLD_NOLOAD), nullptr);
  EXPECT_NE(dlopen(ORRELO_LIBRARY, RTLD_NOW | RTLD_NOLOAD), nullptr) << "its threads run";
}

}  // namespace
}  // namespace orrelo::test
