#include "image/Downloader.h"
#include "support/TestPlatform.h"

#include <gmock/gmock.h>
#include <new>
#include <stdexcept>

namespace orrelo::test {
namespace {

using testing::ElementsAre;

/// Every text but "bad" is a value; with `holds`, conversions wait in `held`.
class SlowBytes final : public DataConvertible<std::string> {
 public:
  void value(Data data, std::function<void(std::optional<std::string>)> completion) override {
    auto run = [data, completion = std::move(completion)] {
      completion(*data == "bad" ? std::nullopt : std::optional(*data));
    };
    ++conversions;
    if (holds) {
      held.emplace_back(std::move(run));
    } else {
      run();
    }
  }
  Data data(const std::string&) override { return nullptr; }

  int conversions = 0;
  bool holds = false;
  std::vector<std::function<void()>> held;
};

/// Fails to make a task, or to resume it.
class RefusingSession final : public URLSession {
 public:
  std::shared_ptr<URLSessionTask> dataTask(URLRequest, Completion) override { return nullptr; }
  std::shared_ptr<URLSessionTask> streamingTask(URLRequest,
                                                std::shared_ptr<URLSessionDataDelegate>) override {
    class Task final : public URLSessionTask {
      void resume() override { throw std::runtime_error("no thread"); }
      void cancel() override {}
    };
    if (!makesTasks) throw std::bad_alloc();
    return std::make_shared<Task>();
  }
  void trust(std::string_view, const std::string&) override {}

  bool makesTasks = false;
};

class DownloaderTest : public testing::Test {
 protected:
  DownloadTask<std::string> fetch(const std::string& name, const std::string& path = "/a.png") {
    return downloader_->fetch(*Url::parse("https://img.example" + path), note(name));
  }
  Download<std::string>::Completion note(const std::string& name) {
    return [this, name](const Result<std::string>& result) {
      const auto* const error = std::get_if<Error>(&result);
      heard_.push_back(name + ": " + (error != nullptr ? error->caseName() : std::get<std::string>(result)));
      if (const auto then = std::exchange(then_[name], nullptr)) then();
    };
  }
  void reply(const std::string& body) { platform_.session->answer(ScriptedURLSession::reply(200, body)); }
  std::size_t requests() const { return platform_.session->requests.size(); }

  TestPlatform platform_;
  std::shared_ptr<SlowBytes> bytes_ = std::make_shared<SlowBytes>();
  std::shared_ptr<Downloader<std::string>> downloader_ =
      std::make_shared<Downloader<std::string>>(bytes_, Platform::current());
  std::vector<std::string> heard_;
  std::map<std::string, std::function<void()>> then_;
};

TEST_F(DownloaderTest, OneTransferServesAllWhoAskForItsUrl) {
  const auto a = fetch("a");
  const auto b = fetch("b");
  fetch("other", "/b.png");
  EXPECT_EQ(a.download, b.download);
  EXPECT_EQ(a.cancelToken, 0);
  EXPECT_EQ(b.cancelToken, 1);
  EXPECT_EQ(b.download->completions().size(), 2u);
  ASSERT_EQ(requests(), 2u);
  EXPECT_TRUE(platform_.session->requests[0].isTimeoutIdle);
  EXPECT_EQ(platform_.session->requests[0].timeout, std::chrono::seconds(60));

  const std::string picture(2500, 'p');  // comes in three pieces
  reply(picture);
  EXPECT_THAT(heard_, ElementsAre("a: " + picture, "b: " + picture));
  EXPECT_EQ(bytes_->conversions, 1);
  const auto later = fetch("later");
  EXPECT_NE(later.download, a.download);
  EXPECT_EQ(later.cancelToken, 0);
  EXPECT_EQ(requests(), 3u);
}

TEST_F(DownloaderTest, ACancelledCallerLeavesTheOthersTheirTransfer) {
  const auto a = fetch("a");
  const auto b = fetch("b");
  a.cancel();
  a.cancel();
  EXPECT_THAT(heard_, ElementsAre("a: canceled"));
  EXPECT_EQ(platform_.session->cancelled, 0);
  EXPECT_EQ(fetch("c").cancelToken, 2) << "tokens are not used again";
  reply("p");
  b.cancel();
  EXPECT_THAT(heard_, ElementsAre("a: canceled", "b: p", "c: p"));
  EXPECT_EQ(platform_.session->cancelled, 0);
}

TEST_F(DownloaderTest, TheLastToCancelEndsTheTransferAndTheNextStartsAfresh) {
  const auto a = fetch("a");
  const auto b = fetch("b");
  b.cancel();
  a.cancel();
  EXPECT_EQ(platform_.session->cancelled, 1);
  EXPECT_EQ(a.download->addCompletion(note("late")), std::nullopt);
  const auto c = fetch("c");
  EXPECT_EQ(c.cancelToken, 0);
  ASSERT_EQ(requests(), 2u);

  reply("of the cancelled one");  // reaches nobody and does not end the new transfer
  EXPECT_THAT(heard_, ElementsAre("b: canceled", "a: canceled"));
  EXPECT_EQ(fetch("d").download, c.download);
  reply("new");
  EXPECT_THAT(heard_, ElementsAre("b: canceled", "a: canceled", "c: new", "d: new"));
}

TEST_F(DownloaderTest, AFailureIsForAllAndTheNextFetchStartsAfresh) {
  then_["a"] = [this] { fetch("again"); };
  fetch("a");
  fetch("b");
  auto broken = ScriptedURLSession::failure(URLError::networkConnectionLost);
  broken.data = "half of i";
  platform_.session->answer(broken);
  EXPECT_THAT(heard_, ElementsAre("a: networkConnectionLost", "b: networkConnectionLost"));
  EXPECT_EQ(requests(), 2u) << "a completion may ask again";
  reply("bad");
  EXPECT_EQ(heard_.back(), "again: dataConversion");
}

TEST_F(DownloaderTest, CallersMayJoinOrCancelDuringTheConversion) {
  bytes_->holds = true;
  const auto a = fetch("a");
  fetch("b");
  reply("p");
  fetch("c");
  a.cancel();
  EXPECT_EQ(requests(), 1u);
  bytes_->held.at(0)();
  EXPECT_THAT(heard_, ElementsAre("a: canceled", "b: p", "c: p"));

  const auto d = fetch("d");
  reply("q");
  d.cancel();
  fetch("e");
  bytes_->held.at(1)();
  EXPECT_EQ(heard_.back(), "d: canceled");
  EXPECT_EQ(requests(), 3u);
}

TEST_F(DownloaderTest, ACompletionMayCancelAnother) {
  fetch("a");
  const auto b = fetch("b");
  then_["a"] = [b] { b.cancel(); };
  reply("p");
  EXPECT_THAT(heard_, ElementsAre("a: p", "b: canceled"));
}

TEST_F(DownloaderTest, ACompletionThatThrowsLeavesTheOthersTheirs) {
  then_["a"] = then_["c"] = [] { throw std::runtime_error("a caller's own trouble"); };
  fetch("a");
  fetch("b");
  reply("p");
  const auto c = fetch("c");
  EXPECT_NO_THROW(c.cancel());
  EXPECT_THAT(heard_, ElementsAre("a: p", "b: p", "c: canceled"));
}

TEST_F(DownloaderTest, ATransferThatCannotBeStartedFailsAndIsForgotten) {
  const auto session = std::make_shared<RefusingSession>();
  auto platform = Platform::current();
  platform.urlSession = session;
  downloader_ = std::make_shared<Downloader<std::string>>(bytes_, platform);
  EXPECT_THROW(fetch("none"), std::bad_alloc);
  session->makesTasks = true;
  for (const auto* const name : {"a", "again"}) {
    const auto task = fetch(name);
    EXPECT_EQ(task.cancelToken, 0) << "a new download";
    platform_.loop->run();
    EXPECT_THAT(heard_.back(), testing::StartsWith(std::string(name) + ": "));
    task.cancel();
  }
  EXPECT_EQ(heard_.size(), 2u);
}

TEST_F(DownloaderTest, NobodyHearsOfADownloaderThatIsGone) {
  fetch("a");
  fetch("b", "/b.png");
  downloader_.reset();
  EXPECT_EQ(platform_.session->cancelled, 2);
  reply("late");
  EXPECT_TRUE(heard_.empty());
}

}  // namespace
}  // namespace orrelo::test
