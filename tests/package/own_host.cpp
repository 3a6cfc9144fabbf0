// A host with a clock, a session, an image codec and an application of its own, and without Qt. It succeeds
// once the kit has asked all of them and has left the foreground with the application.
#include <orrelo/Orrelo.h>
#include <orrelo/platform/ApplicationObservers.h>
#include <orrelo/platform/Clock.h>
#include <orrelo/platform/ImageCodec.h>
#include <orrelo/platform/URLSession.h>

#include <algorithm>
#include <filesystem>
#include <iostream>
#include <iterator>
#include <map>
#include <mutex>

namespace {

using namespace orrelo;

class OwnClock final : public Clock {
 public:
  Date now() const override { return Date::fromSeconds(1907712000); }  // 2030-06-15
  std::chrono::microseconds steady() const override {
    return std::chrono::duration_cast<std::chrono::microseconds>(
        std::chrono::steady_clock::now().time_since_epoch());
  }
};

// Answers from its table, on the main thread.
class OwnSession final : public URLSession {
 public:
  std::shared_ptr<URLSessionTask> dataTask(URLRequest request, Completion completion) override {
    return std::make_shared<Task>(*this, std::move(request), std::move(completion));
  }
  std::shared_ptr<URLSessionTask> streamingTask(URLRequest request,
                                                std::shared_ptr<URLSessionDataDelegate> delegate) override {
    return dataTask(std::move(request), [delegate](const URLSessionResult& result) {
      if (result.data) delegate->onData(*result.data);
      delegate->onCompletion(result.error);
    });
  }
  void trust(std::string_view, const std::string&) override {}

  bool hasSent(std::string_view text) const {
    return std::any_of(bodies_.begin(), bodies_.end(),
                       [text](const auto& body) { return body.find(text) != std::string::npos; });
  }

 private:
  class Task final : public URLSessionTask, public std::enable_shared_from_this<Task> {
   public:
    Task(OwnSession& session, URLRequest request, Completion completion)
        : session_(session), request_(std::move(request)), completion_(std::move(completion)) {}
    void resume() override {
      RunLoop::main().post([self = shared_from_this()] {
        if (const auto completion = self->take()) completion(self->session_.answer(self->request_));
      });
    }
    void cancel() override { take(); }

   private:
    Completion take() {
      const std::lock_guard lock(mutex_);
      return std::exchange(completion_, nullptr);
    }

    OwnSession& session_;
    const URLRequest request_;
    std::mutex mutex_;
    Completion completion_;
  };

  URLSessionResult answer(const URLRequest& request) {
    static const std::map<std::string_view, std::string> answers{
        {"/config", R"({"sdk_enable":true,"notification_polling_interval":60000,"auto_swipe_interval":3000,
          "app_install_link":"https://store.example/app","push_service_setting":"Polling",
          "color":{"main":"#FF0000","sub1":"#00FF00","sub2":"#0000FF"},"entries":[],
          "plugins":{"pointsystem":false,"gifticon":false,"naverpay":{"is_enabled":false,
            "entry_view_message":"","exchange_text":"","landing_url":"https://pay.example/"}}})"},
        {"/event", ""},
        {"/banner",
         R"({"type":"banner","items":[{"campaign_id":"c","image_url":"https://img.example/1.png"}]})"},
        {"/1.png", "a picture"}};
    if (request.body) bodies_.push_back(*request.body);
    for (const auto& [end, reply] : answers) {
      if (request.url.path().ends_with(end)) return {std::nullopt, reply, HTTPURLResponse{200, {}}};
    }
    return {makeError(URLError::cannotConnectToHost), std::nullopt, std::nullopt};
  }

  std::vector<std::string> bodies_;
};

class OwnCodec final : public ImageCodec {
 public:
  std::optional<Bitmap> decode(std::string_view bytes) override {
    if (bytes != "a picture") return std::nullopt;
    return Bitmap{.width = 1, .height = 1, .pixels = std::make_shared<std::uint8_t[]>(Bitmap::sizeOf(1, 1))};
  }
  std::optional<std::string> encode(const Bitmap&) override { return "a picture"; }
};

class OwnApplication final : public Application {
 public:
  Registration observe(Signal signal, std::function<void()> callback) override {
    return observers_.observe(signal, std::move(callback));
  }
  bool canOpen(const Url&) const override { return false; }
  void open(const Url&) override {}
  void setPasteboard(const std::string&) override {}
  void share(const std::string&) override {}
  double screenScale() const override { return 2.0; }

  void leaveForeground() { observers_.send(Signal::didEnterBackground); }

 private:
  ApplicationObservers observers_;
};

bool hasFiles(const std::filesystem::path& folder) {
  namespace fs = std::filesystem;
  if (!fs::exists(folder)) return false;
  return std::any_of(fs::recursive_directory_iterator(folder), fs::recursive_directory_iterator(),
                     [](const auto& entry) { return entry.is_regular_file(); });
}

// Runs the main loop until `holds` does.
bool waitFor(const char* what, const std::function<bool()>& holds) {
  const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(30);
  while (!holds()) {
    if (std::chrono::steady_clock::now() > end) return std::cout << "never: " << what << "\n", false;
    RunLoop::main().runFor(std::chrono::milliseconds(10));
  }
  return true;
}

}  // namespace

int main() {
  const auto folder = std::filesystem::temp_directory_path() / "packaged-own-host";
  std::filesystem::remove_all(folder);  // a former run's
  const auto cache = folder / "cache";
  const auto session = std::make_shared<OwnSession>();
  const auto application = std::make_shared<OwnApplication>();
  auto platform = Platform::posix({.bundleIdentifier = "com.example.packaged-own-host",
                                   .dataDirectory = folder / "data",
                                   .cacheDirectory = cache});
  platform.clock = std::make_shared<OwnClock>();
  platform.urlSession = session;
  platform.imageCodec = std::make_shared<OwnCodec>();
  platform.application = application;
  Platform::install(platform);
  Orrelo::initialize(ORLConfig("packaged-own-host"));
  Orrelo::setUser(ORLUser("user-1"));
  Orrelo::sendEvent("started");
  const bool isSent = waitFor("an event of the own clock's time at the own session", [&] {
    return session->hasSent(R"("event_name":"started","event_time":"2030-06-1)");
  });

  // The pictures of a screen lie in the cache folder until the application leaves the foreground.
  const auto screen = Orrelo::getHomeViewController();
  Orrelo::showInAppMessage(screen);
  const bool isCached = waitFor("a picture that the own codec has read", [&] { return hasFiles(cache); });
  application->leaveForeground();
  const bool isCleared = waitFor("the pictures' end in the background", [&] { return !hasFiles(cache); });
  const bool isDone = isSent && isCached && isCleared;
  std::cout << "a platform of the host's own " << (isDone ? "works" : "does not work") << "\n";
  return isDone ? 0 : 1;
}
