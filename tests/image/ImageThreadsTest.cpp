#include "image/GifFiles.h"
#include "image/ImageLoader.h"
#include "image/ImageView.h"
#include "image/gif/GifPlayback.h"
#include "image/gif/GifPlaybackManager.h"
#include "network/RawServer.h"
#include "platform/posix/PosixApplication.h"
#include "support/PlainImageCodec.h"
#include "support/TemporaryFolder.h"
#include "support/TestPlatform.h"

#include <atomic>
#include <gmock/gmock.h>
#include <set>
#include <thread>

namespace orrelo::test {
namespace {

// Four threads load and cancel with the real session, workers and run loop while the application enters the
// background.
TEST(ImageThreadsTest, EveryLoadEndsOnceOnTheMainThread) {
  const TemporaryFolder folder;
  const auto application = std::make_shared<PosixApplication>();
  auto platform = Platform::posix({.bundleIdentifier = "images",
                                   .shortVersion = "",
                                   .bundleVersion = "",
                                   .dataDirectory = folder.path(),
                                   .cacheDirectory = folder.path()});
  platform.imageCodec = std::make_shared<PlainImageCodec>();
  platform.application = application;
  RawServer server([](const std::string&) { return RawServer::reply(PlainImageCodec::file(8, 8)); });
  const auto pipeline = std::make_shared<ImagePipeline>("threads", platform);

  constexpr int threadCount = 4, loadsEach = 250;
  std::atomic<int> ended = 0, elsewhere = 0, unexpected = 0;
  const auto onEnd = [&](const Result<ImagePtr>& result) {
    const auto* const error = std::get_if<Error>(&result);
    const bool isCancelled = error != nullptr && error->caseName() == "canceled";
    // The background signal may delete a file between the lookup and the read.
    const bool isTaken = error != nullptr && error->caseName() == "uninitializedInputStream";
    if (error != nullptr && !isCancelled && !isTaken) ++unexpected;
    if (!RunLoop::main().isCurrent()) ++elsewhere;
    if (++ended == threadCount * loadsEach) RunLoop::main().stop();
  };
  // A completion, and the view that it captures, must be destroyed on the main thread.
  const auto checkedOwner = [&] {
    return std::shared_ptr<void>(nullptr, [&](void*) {
      if (!RunLoop::main().isCurrent()) ++elsewhere;
    });
  };
  std::vector<std::jthread> threads;
  for (int thread = 0; thread < threadCount; ++thread) {
    threads.emplace_back([&, thread] {
      for (int i = 0; i < loadsEach; ++i) {
        const auto url = Url::parse(server.url("/" + std::to_string(i % 20)));
        const auto size = std::make_shared<DownsamplingImageTransformer>(Size{4.0, 4.0});
        const auto task =
            pipeline->image(*url, i % 3 == 0 ? size : nullptr,
                            [&onEnd, view = checkedOwner()](const auto& result) { onEnd(result); });
        if (task && i % 5 == 0) task->cancel();
        if (i % 50 == 7) pipeline->cache().memoryCache().removeAll();
        if (thread == 0 && i % 50 == 0) application->send(Application::Signal::didEnterBackground);
      }
    });
  }
  RunLoop::main().runFor(std::chrono::seconds(120));
  EXPECT_EQ(ended, threadCount * loadsEach);
  EXPECT_EQ(elsewhere, 0);
  EXPECT_EQ(unexpected, 0);
}

// Workers decode for views that come on screen, leave it and go while frames are on their way.
TEST(ImageThreadsTest, FramesAreDecodedWhileOthersAreShown) {
  const TestPlatform platform;
  auto services = Platform::current();
  services.workers = Platform::posix().workers;
  const auto image = std::get<0>(AnimatedImage::create(makeData(blinkingGif({2, 2, 2, 2})), 0.8F, 60, 1.0));
  for (const int memoryLimit : {-1, 50}) {  // decoded as they are needed, and kept
    const auto manager = std::make_shared<GifPlaybackManager>(memoryLimit, services);
    std::vector<std::shared_ptr<ImageView>> views(4);
    std::set<std::string> shown;
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(60);
    for (unsigned i = 0; i < 1000 || (shown.size() < 4 && std::chrono::steady_clock::now() < end); ++i) {
      auto& view = views[i % views.size()];
      if (i < 1000 && i % 100 < views.size()) {
        view = std::make_shared<ImageView>();
        GifPlayback::of(view).playAnimation(image, manager, GifPlayback::forever);
      }
      view->setPlacement({true, i >= 1000 || i % 20 < 16});
      platform.displayLink->tick();
      for (const auto& each : views) {
        if (each && each->frame.value()) shown.insert(textOf(each->frame.value()->bitmap));
      }
      if (i >= 1000) std::this_thread::yield();  // a busy machine may have shown little until now
    }
    EXPECT_THAT(shown, testing::ElementsAre("0", "1", "2", "3")) << memoryLimit;
  }
}

}  // namespace
}  // namespace orrelo::test
