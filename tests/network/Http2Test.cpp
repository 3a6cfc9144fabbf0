#include "RawServer.h"
#include "SessionFixture.h"
#include "support/TemporaryFolder.h"

#include <csignal>
#include <fcntl.h>
#include <fstream>
#include <gmock/gmock.h>
#include <spawn.h>
#include <sys/wait.h>

extern char** environ;

namespace orrelo::test {
namespace {

// Runs a program whose output comes through a pipe.
class Program {
 public:
  explicit Program(std::vector<std::string> command) {
    std::array<int, 2> ends{};
    if (pipe2(ends.data(), O_CLOEXEC) != 0) throw std::runtime_error("no pipe");
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, ends[1], STDOUT_FILENO);
    posix_spawn_file_actions_adddup2(&actions, ends[1], STDERR_FILENO);
    std::vector<char*> arguments;
    for (auto& word : command) arguments.push_back(word.data());
    arguments.push_back(nullptr);
    const int failure = posix_spawnp(&pid_, arguments[0], &actions, nullptr, arguments.data(), environ);
    posix_spawn_file_actions_destroy(&actions);
    close(ends[1]);
    output_ = ends[0];
    if (failure != 0) throw std::runtime_error("cannot run " + command[0]);
    reader_ = std::thread([this] { readAll(); });
  }
  ~Program() {
    end();
    reader_.join();
    close(output_);
  }

  /// Its status, once it has ended by itself.
  int wait() {
    int status = 0;
    waitpid(std::exchange(pid_, -1), &status, 0);
    return status;
  }
  void end() {
    if (pid_ <= 0) return;
    kill(pid_, SIGKILL);
    wait();
  }
  /// What it has written up to `count` occurrences of `part`; all of it when they do not come.
  std::string written(const std::string& part, int count = 1) {
    std::unique_lock lock(mutex_);
    changed_.wait_for(lock, std::chrono::seconds(30), [&] {
      int found = 0;
      for (auto at = text_.find(part); at != std::string::npos; at = text_.find(part, at + 1)) ++found;
      return ended_ || found >= count;
    });
    return text_;
  }

 private:
  void readAll() {
    std::array<char, 4096> chunk{};
    for (ssize_t got = 0; (got = read(output_, chunk.data(), chunk.size())) > 0;) {
      const std::lock_guard lock(mutex_);
      text_.append(chunk.data(), static_cast<std::size_t>(got));
      changed_.notify_all();
    }
    const std::lock_guard lock(mutex_);
    ended_ = true;
    changed_.notify_all();
  }

  pid_t pid_ = -1;
  int output_ = -1;
  std::mutex mutex_;
  std::condition_variable changed_;
  std::string text_;
  bool ended_ = false;
  std::thread reader_;
};

class Http2Test : public SessionFixture {
 protected:
  Http2Test() {
    Program openssl({"openssl", "req", "-x509", "-newkey", "ec", "-pkeyopt", "ec_paramgen_curve:prime256v1",
                     "-nodes", "-days", "2", "-subj", "/CN=localhost", "-addext",
                     "subjectAltName=DNS:localhost", "-keyout", folder_ / "key.pem", "-out", certificate_});
    EXPECT_EQ(openssl.wait(), 0);
    std::ofstream(folder_ / "hello.txt") << "hello";
    // Another program may take the free port before the server does.
    for (int attempt = 0; attempt < 10 && !isListening(); ++attempt) startServer();
    EXPECT_TRUE(isListening());
    session_->trust(url(), certificate_);
  }

  void startServer() {
    port_ = RawServer([](const std::string&) { return std::string(); }).url("");
    port_ = port_.substr(port_.rfind(':') + 1);
    server_ = std::make_unique<Program>(std::vector<std::string>{
        "nghttpd", "--verbose", "--address=127.0.0.1", "--htdocs=" + folder_.path().string(), "--echo-upload",
        port_, folder_ / "key.pem", certificate_});
  }
  bool isListening() {
    return server_ && server_->written("listen").find("listen 127.0.0.1:" + port_) != std::string::npos;
  }
  std::string url(const std::string& path = "") const { return "https://localhost:" + port_ + path; }

  TemporaryFolder folder_;
  std::string certificate_ = folder_ / "certificate.pem";
  std::string port_;
  std::unique_ptr<Program> server_;
};

TEST_F(Http2Test, RequestsShareOneConnectionAsStreams) {
  auto first = request(url("/hello.txt"));
  first.headers = {{"Kelso-UUID", "u-1"}, {"app_name", ""}};
  const auto result = run(first);
  EXPECT_EQ(text(result), "200 hello");
  EXPECT_EQ(result.response->headers.at("content-length"), "5");

  // More than one frame, and one of them more than a window: libcurl 7.88 may stall when two are, which the
  // kit never sends at once.
  const auto body = [](std::size_t i) {
    return std::string(i == 0 ? 300'000 : 60'000, 'b') + std::to_string(i);
  };
  std::vector<Reply> echoes;
  std::vector<Reply> files;
  for (std::size_t i = 0; i < 8; ++i) {
    echoes.push_back(start(post(url("/echo"), body(i))));
    files.push_back(start(request(url("/hello.txt"))));
  }
  for (std::size_t i = 0; i < 8; ++i) {
    EXPECT_EQ(text(wait(std::move(echoes[i]))), "200 " + body(i));
    EXPECT_EQ(text(wait(std::move(files[i]))), "200 hello");
  }
  EXPECT_EQ(outcome(request(url("/missing"))).substr(0, 3), "404");

  const auto log = server_->written(" closed", 18);
  EXPECT_THAT(log, testing::HasSubstr("The negotiated protocol: h2"));
  EXPECT_THAT(log, testing::HasSubstr("kelso-uuid: u-1"));
  EXPECT_THAT(log, testing::ContainsRegex("app_name: *\n"));
  EXPECT_THAT(log, testing::HasSubstr("stream_id=35"));          // the eighteenth request …
  EXPECT_THAT(log, testing::Not(testing::HasSubstr("[id=2]")));  // … on the one connection
}

TEST_F(Http2Test, AServerThatDiesIsAnErrorAndNotASignal) {
  EXPECT_EQ(outcome(request(url("/hello.txt"))), "200 hello");
  const auto before = std::signal(SIGPIPE, SIG_DFL);
  server_->end();
  session_.reset();  // takes leave of a connection that has nobody at its other end
  session_ = makeCurlURLSession();
  session_->trust(url(), certificate_);
  EXPECT_EQ(outcome(request(url("/hello.txt"))), "cannotConnectToHost");
  std::signal(SIGPIPE, before);
}

}  // namespace
}  // namespace orrelo::test
