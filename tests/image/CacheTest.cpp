#include "image/Cache.h"
#include "support/TestPlatform.h"

#include <fstream>
#include <gmock/gmock.h>
#include <set>
#include <sys/stat.h>

namespace orrelo::test {
namespace {

namespace fs = std::filesystem;
using Signal = Application::Signal;

/// Every text but "bad" is a value.
class Bytes final : public DataConvertible<std::string> {
 public:
  void value(Data data, std::function<void(std::optional<std::string>)> completion) override {
    converted.insert(data);
    completion(*data == "bad" ? std::nullopt : std::optional(*data));
  }
  Data data(const std::string& value) override { return makeData(value); }

  std::set<Data> converted;
};

class CacheTest : public testing::Test {
 protected:
  std::shared_ptr<Cache<std::string>> make(const std::string& name = "A", std::size_t budget = 10'000) {
    return Cache<std::string>::create(name, bytes_, Platform::current(), budget);
  }

  /// "memory value", "disk value" or the error's name; "nothing" when the completion has not run.
  std::string read(Cache<std::string>& cache, const std::string& key) {
    std::string outcome = "nothing";
    cache.value(key, [&](const Result<CacheResult<std::string>>& result) {
      if (const auto* error = std::get_if<Error>(&result)) {
        outcome = error->domain() + "." + error->caseName();
      } else {
        const auto& found = std::get<CacheResult<std::string>>(result);
        outcome = (found.type == CacheType::memory ? "memory " : "disk ") + found.value;
      }
    });
    platform_.loop->run();
    return outcome;
  }
  fs::path folderOf(const std::string& name) const {
    return platform_.folder / ("com.tamrenzo.OrreloSDK.DiskCache." + name);
  }
  fs::path fileOf(const std::string& key) const { return folderOf("A") / WrappedKey(key).key(); }

  TestPlatform platform_;
  std::shared_ptr<Bytes> bytes_ = std::make_shared<Bytes>();
  std::shared_ptr<Cache<std::string>> cache_ = make();
};

constexpr auto missing = "ImagePipelineInputStreamError.uninitializedInputStream";

TEST_F(CacheTest, AKeyIsAnMd5InLowerCase) {
  for (int round = 0; round < 2; ++round) {
    EXPECT_EQ(WrappedKey("").key(), "d41d8cd98f00b204e9800998ecf8427e");
  }
  EXPECT_EQ(WrappedKey("The quick brown fox jumps over the lazy dog").key(),
            "9e107d9d372bb6826bd81d3542a419d6");
}

// A thread keeps the keys of the texts that it asked for last, in a table that many texts share.
TEST_F(CacheTest, AKeyDoesNotDependOnTheKeysBefore) {
  std::set<std::string> keys;
  for (int round = 0; round < 2; ++round) {
    for (int i = 0; i < 1000; ++i) {
      const auto url = "https://a/" + std::to_string(i);
      const auto key = WrappedKey(url).key();
      EXPECT_EQ(WrappedKey(url).key(), key);
      keys.insert(key);
    }
  }
  EXPECT_EQ(keys.size(), 1000u);
  const std::string longText(1000, 'a');
  EXPECT_EQ(WrappedKey(longText).key(), "cabe45dcc9ae5b66ba86600cca6b8ba8");
  EXPECT_EQ(WrappedKey("").key(), "d41d8cd98f00b204e9800998ecf8427e");
}

TEST_F(CacheTest, IsServedByMemoryThenByDisk) {
  EXPECT_EQ(std::get<bool>(cache_->isCached("k")), false);
  EXPECT_EQ(read(*cache_, "k"), missing);
  cache_->store(makeData("v"), "k");
  EXPECT_EQ(read(*cache_, "k"), "memory v");
  EXPECT_EQ(fs::file_size(fileOf("k")), 1u);
  EXPECT_EQ(fs::status(folderOf("A")).permissions(), fs::perms::owner_all);

  cache_->memoryCache().removeAll();
  EXPECT_EQ(std::get<bool>(cache_->isCached("k")), true);
  EXPECT_EQ(read(*cache_, "k"), "disk v");
  EXPECT_EQ(read(*cache_, "k"), "memory v");
  EXPECT_EQ(std::get<bool>(make()->isCached("k")), true) << "a file of a former run counts";
  EXPECT_EQ(read(*make(), "k"), "disk v");
  EXPECT_EQ(read(*make("B"), "k"), missing) << "another cache has another folder";
}

TEST_F(CacheTest, ReadersOfOneKeyShareOneFileRead) {
  cache_->store(makeData("v"), "k");
  platform_.loop->run();
  cache_->memoryCache().removeAll();
  std::vector<CacheType> types;
  const auto note = [&](const Result<CacheResult<std::string>>& result) {
    types.push_back(std::get<CacheResult<std::string>>(result).type);
  };
  for (int i = 0; i < 3; ++i) cache_->value("k", note);
  platform_.loop->run();
  EXPECT_THAT(types, testing::ElementsAre(CacheType::disk, CacheType::memory, CacheType::memory));
  EXPECT_EQ(bytes_->converted.size(), 1u) << "the readers share the bytes";

  cache_->memoryCache().removeAll();
  cache_->value("k", note);
  cache_->store(makeData("newer"), "k");
  platform_.loop->run();
  EXPECT_EQ(read(*cache_, "k"), "memory newer") << "a value stored during the read is kept";
}

TEST_F(CacheTest, BothSignalsClearTheDiskAndLeaveMemory) {
  for (const auto signal : {Signal::didEnterBackground, Signal::willTerminate}) {
    cache_->store(makeData("v"), "k");
    platform_.loop->run();
    ASSERT_TRUE(fs::exists(fileOf("k")));
    platform_.application->send(signal);
    platform_.loop->run();
    EXPECT_FALSE(fs::exists(folderOf("A")));
    EXPECT_EQ(read(*cache_, "k"), "memory v");
    cache_->memoryCache().removeAll();
    EXPECT_EQ(std::get<bool>(cache_->isCached("k")), false);
    EXPECT_TRUE(fs::exists(folderOf("A"))) << "isCached makes the folder";
    EXPECT_EQ(read(*cache_, "k"), missing);
  }
  cache_->store(makeData("after"), "k");
  cache_->memoryCache().removeAll();
  EXPECT_EQ(read(*cache_, "k"), "disk after");
}

TEST_F(CacheTest, TerminationDeletesTheFilesAtOnce) {
  cache_->store(makeData("v"), "k");
  platform_.loop->run();
  cache_->store(makeData("not written yet"), "other");
  platform_.application->send(Signal::willTerminate);
  EXPECT_FALSE(fs::exists(folderOf("A")));
  platform_.loop->run();
  EXPECT_FALSE(fs::exists(folderOf("A")));
}

TEST_F(CacheTest, WhatCannotBeReadIsAnError) {
  cache_->store(makeData("bad"), "k");
  EXPECT_EQ(read(*cache_, "k"), "CacheError.dataConversion");
  cache_->memoryCache().removeAll();
  EXPECT_EQ(read(*cache_, "k"), "CacheError.dataConversion");
  cache_->memoryCache().removeAll();
  fs::resize_file(fileOf("k"), 0);
  EXPECT_EQ(read(*cache_, "k"), "ImagePipelineInputStreamError.emptyFile");
  ASSERT_EQ(mkfifo(fileOf("pipe").c_str(), 0600), 0);
  EXPECT_EQ(read(*cache_, "pipe"), missing);
  std::ofstream(fileOf("large")) << "x";
  for (const auto size : {std::uintmax_t{maximumFileSize} + 1, (std::uintmax_t{1} << 32U) + 1}) {
    fs::resize_file(fileOf("large"), size);
    EXPECT_EQ(read(*cache_, "large"), missing) << size;
  }
  cache_->store(makeData(std::string(maximumFileSize + 1, 'x')), "new");
  platform_.loop->run();
  EXPECT_FALSE(fs::exists(fileOf("new"))) << "too large to be read, so it is not written";
}

TEST_F(CacheTest, AFolderThatCannotBeMadeIsAnErrorForWhoeverAsks) {
  std::ofstream(folderOf("A")) << "in the way";
  EXPECT_EQ(std::get<Error>(cache_->isCached("k")).caseName(), "directory");
  EXPECT_EQ(read(*cache_, "k"), "FileError.directory");
  std::vector<std::string> failures;
  const auto note = [&](const std::optional<Error>& error) {
    failures.push_back(error ? error->caseName() : "");
  };
  cache_->diskCache().insert(makeData("v"), "k", note);
  cache_->diskCache().clear(note);
  platform_.loop->run();
  EXPECT_THAT(failures, testing::ElementsAre("directory", "directory"));
}

TEST_F(CacheTest, ACacheThatIsGoneCompletesNothingAndHearsNothing) {
  cache_->store(makeData("v"), "k");
  cache_->memoryCache().removeAll();
  bool isCompleted = false;
  cache_->value("k", [&](const auto&) { isCompleted = true; });
  cache_.reset();
  platform_.application->send(Signal::didEnterBackground);
  platform_.loop->run();
  EXPECT_FALSE(isCompleted);
  EXPECT_TRUE(fs::exists(fileOf("k"))) << "its writes are completed";
}

TEST_F(CacheTest, MemoryHoldsWhatWasUsedLastWithinItsBudget) {
  constexpr std::size_t size = 1000;
  MemoryCache memory(3 * (size + MemoryCache::entryCost));
  for (const auto* const key : {"a", "b", "c"}) memory.insert(key, makeData(std::string(size, *key)));
  EXPECT_TRUE(memory.value("a"));
  memory.insert("b", makeData(std::string(size, 'B')));  // replaces the former value
  memory.insert("d", makeData(std::string(size, 'd')));
  EXPECT_FALSE(memory.value("c"));
  EXPECT_EQ(memory.value("b")->front(), 'B');
  EXPECT_TRUE(memory.contains("a"));
  memory.insert("e", makeData(std::string(10'000, 'e')));
  EXPECT_FALSE(memory.contains("e"));
  EXPECT_TRUE(memory.contains("d"));
  memory.insert("f", makeData(std::string(3 * size, 'f')));
  for (const auto* const key : {"a", "b", "d"}) EXPECT_FALSE(memory.contains(key));
}

}  // namespace
}  // namespace orrelo::test
