#include "image/GifFiles.h"
#include "image/ImageLoader.h"
#include "image/ImageView.h"
#include "image/gif/GifLoad.h"
#include "image/gif/GifPlayback.h"
#include "image/gif/GifPlaybackManager.h"
#include "support/TestPlatform.h"

#include <deque>
#include <gmock/gmock.h>

namespace orrelo::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// Runs each task inside `post`.
class PoolAtOnce final : public WorkerPool {
 public:
  void post(QualityOfService, Task task) override { task(); }
  void postAfter(QualityOfService, std::chrono::microseconds, Task task) override { task(); }
};

/// Each task takes nine ticks.
class SlowPool final : public WorkerPool {
 public:
  void post(QualityOfService, Task task) override { tasks_.emplace_back(now_ + 9, std::move(task)); }
  void postAfter(QualityOfService quality, std::chrono::microseconds, Task task) override {
    post(quality, std::move(task));
  }
  void tick() {
    ++now_;
    while (!tasks_.empty() && tasks_.front().first <= now_) {
      std::exchange(tasks_.front().second, nullptr)();
      tasks_.pop_front();
    }
  }

 private:
  int now_ = 0;
  std::deque<std::pair<int, Task>> tasks_;
};

class GifPlaybackTest : public testing::Test, public GifPlaybackDelegate {
 protected:
  GifPlaybackTest() { useWorkers(std::make_shared<PoolAtOnce>()); }

  template <class Change>
  static void install(Change change) {
    auto services = Platform::current();
    change(services);
    Platform::install(services);
  }
  static void useWorkers(const std::shared_ptr<WorkerPool>& workers) {
    install([&](Platform& services) { services.workers = workers; });
  }

  void playbackDidStart(const Sender&) override { events_.emplace_back("start"); }
  void playbackDidLoop(const Sender& sender) override {
    events_.emplace_back("loop");
    if (onLoop_) onLoop_(sender);
  }
  void playbackDidStop(const Sender&) override { events_.emplace_back("stop"); }
  void downloadDidFinish(const Sender&) override { events_.emplace_back("finish"); }
  void downloadDidFail(const Sender&, const Url& url, const Error& error) override {
    events_.push_back("fail " + url.text() + " " + error.caseName());
  }

  std::shared_ptr<ImageView> makeView(bool isOnScreen = true) {
    auto view = std::make_shared<ImageView>();
    view->setPlacement({true, isOnScreen});
    GifPlayback::of(view).delegate = listener_;
    return view;
  }
  static std::shared_ptr<const AnimatedImage> animation(const std::string& bytes) {
    return std::get<0>(AnimatedImage::create(makeData(bytes), 0.8F, 60, 1.0));
  }
  std::shared_ptr<ImageView> play(int loops, const std::string& bytes = blinkingGif({10, 10, 10})) {
    auto view = makeView();
    GifPlayback::of(view).playAnimation(animation(bytes), manager(), loops);
    return view;
  }
  static std::shared_ptr<GifPlaybackManager> manager() { return GifPlaybackManager::shared(); }
  /// The frames that the view shows at the next ticks.
  std::string shownIn(const std::shared_ptr<ImageView>& view, int ticks) {
    std::string shown;
    for (int i = 0; i < ticks; ++i) {
      platform_.displayLink->tick();
      shown += shownBy(view);
    }
    return shown;
  }
  static std::string shownBy(const std::shared_ptr<ImageView>& view) {
    const auto& image = view->frame.value() ? view->frame.value() : view->state.value().image;
    return image ? textOf(image->bitmap) : "-";
  }
  void load(const std::shared_ptr<ImageView>& view, const std::string& url) {
    EXPECT_TRUE(view->load(url, [this](const Result<ImagePtr>& result) {
      const auto* const error = std::get_if<Error>(&result);
      events_.push_back(error != nullptr ? error->caseName() : textOf(std::get<ImagePtr>(result)->bitmap));
    }));
  }
  void reply(const std::string& body) {
    platform_.session->answer(ScriptedURLSession::reply(200, body));
    platform_.loop->run();
  }

  TestPlatform platform_;
  std::shared_ptr<GifPlaybackDelegate> listener_{this, [](auto*) {}};
  std::vector<std::string> events_;
  std::function<void(const Sender&)> onLoop_;
};

TEST_F(GifPlaybackTest, ShowsEachFrameForItsTicks) {
  const auto view = play(-1);
  EXPECT_EQ(shownBy(view), "0");
  // The first tick finds the view on screen, and each shows what the one before has chosen.
  EXPECT_EQ(shownIn(view, 26),
            "00000000"
            "111111"
            "222222"
            "000000");
}

TEST_F(GifPlaybackTest, EndsAfterItsLoops) {
  struct Row {
    int loops;
    std::vector<std::string> events;
    bool isKept;
  };
  const std::vector<Row> rows{
      {0, {"start"}, false},
      {1, {"start", "stop"}, false},
      {2, {"start", "loop", "stop"}, false},
      {4, {"start", "loop", "loop", "loop", "stop"}, false},
      {5, {"start", "loop", "loop", "loop", "loop", "stop"}, true},
      {-1, {"start", "loop", "loop", "loop", "loop", "loop", "loop"}, true},
  };
  for (const auto& row : rows) {
    events_.clear();
    const auto view = play(row.loops);
    const auto& playback = GifPlayback::of(view);
    platform_.displayLink->tick();
    EXPECT_EQ(playback.haveCache(), row.isKept) << row.loops;
    EXPECT_EQ(playback.cache()->keptCount(), row.isKept ? 3u : 0u) << row.loops;
    platform_.displayLink->tick(6 * 18);
    EXPECT_EQ(events_, row.events) << row.loops;
    EXPECT_EQ(playback.haveCache(), row.loops == -1) << row.loops;
    EXPECT_EQ(shownBy(view), row.loops == 0 ? "0" : "2") << "the last frame stays";
    EXPECT_EQ(playback.loopsLeft(), std::min(row.loops, 0));
    EXPECT_EQ(manager()->displayViewCount(), 1u) << "an ended animation keeps its place";
  }
  EXPECT_EQ(manager()->displayViewCount(), 0u) << "the views are gone";
}

TEST_F(GifPlaybackTest, IdlesOffScreenAndLeavesWithItsSuperview) {
  const auto view = play(-1);
  const auto& playback = GifPlayback::of(view);
  platform_.displayLink->tick(10);
  view->setPlacement({true, false});
  platform_.displayLink->tick();
  const auto decodes = playback.cache()->decodeCount();
  EXPECT_FALSE(playback.onScreen());
  EXPECT_EQ(playback.cache()->keptCount(), 0u);
  EXPECT_EQ(shownIn(view, 30), std::string(30, '1')) << "it neither moves nor decodes";
  EXPECT_EQ(playback.cache()->decodeCount(), decodes);
  view->setPlacement({true, true});
  EXPECT_EQ(shownIn(view, 6), "111122") << "it goes on where it was";

  view->setPlacement({false, false});
  platform_.displayLink->tick();
  EXPECT_EQ(manager()->displayViewCount(), 1u);
  platform_.displayLink->tick();
  EXPECT_EQ(manager()->displayViewCount(), 0u);
  EXPECT_EQ(manager()->totalGifSize(), 0);
  EXPECT_TRUE(manager()->hasTimer());
  platform_.displayLink->tick();
  EXPECT_FALSE(manager()->hasTimer());
  EXPECT_EQ(platform_.displayLink->runningCount(), 0u);

  view->setPlacement({true, true});
  EXPECT_TRUE(manager()->hasTimer()) << "its screen is back";
  EXPECT_EQ(shownIn(view, 7).back(), '0');
  EXPECT_FALSE(manager()->attachView(view));
}

TEST_F(GifPlaybackTest, KeepsFramesWithinTheLimitOfAllViews) {
  const auto big =
      gifFile(2500, 1000, {{.rows = {"0"}, .delay = 100}, {.rows = {"1"}, .delay = 100}});  // 20 MB
  std::vector<std::shared_ptr<ImageView>> views{play(-1, big), play(-1, big)};
  const auto kept = [&] {
    platform_.displayLink->tick();
    std::string text;
    for (const auto& view : views) text += std::to_string(GifPlayback::of(view).cache()->keptCount());
    return std::to_string(manager()->totalGifSize()) + ":" + text;
  };
  EXPECT_EQ(kept(), "40:22");
  views.push_back(play(-1, gifFile(2500, 1000, {{.rows = {"0"}, .delay = 100}})));
  EXPECT_EQ(kept(), "50:221");
  views.push_back(play(-1, gifFile(500, 500, {{.rows = {"0"}, .delay = 100}})));
  EXPECT_EQ(kept(), "51:0000");
  views.pop_back();
  EXPECT_EQ(kept(), "50:221");
  ImageLoad::setImage(views[2], std::nullopt);
  views.pop_back();
  EXPECT_EQ(kept(), "40:22");
}

TEST_F(GifPlaybackTest, ALateFrameLeavesTheFormer) {
  useWorkers(platform_.loop);
  const auto view = play(1);
  const auto& cache = *GifPlayback::of(view).cache();
  EXPECT_EQ(shownIn(view, 12), std::string(12, '0'));
  EXPECT_EQ(platform_.loop->pending(), 1u) << "one frame is asked for at a time";
  platform_.loop->run();
  EXPECT_EQ(shownIn(view, 2), "01") << "the tick after the decoding chooses the frame";
  platform_.loop->run();  // the next one, ahead of its time
  EXPECT_EQ(cache.decodeCount(), 2);
  EXPECT_EQ(shownIn(view, 30), "1" + std::string(29, '2'));
  platform_.loop->run();
  EXPECT_EQ(cache.decodeCount(), 2) << "nothing is asked for after the end";
}

TEST_F(GifPlaybackTest, AnAnimationMovesAlthoughDecodingIsTooSlow) {
  const auto pool = std::make_shared<SlowPool>();
  useWorkers(pool);
  const auto view = play(4, blinkingGif({10, 10, 10, 10}));
  std::string shown;
  for (int i = 0; i < 48; ++i) {
    pool->tick();
    shown += shownIn(view, 1);
  }
  EXPECT_EQ(shown,
            "00000000000"
            "111111111"
            "222222"
            "000000000000000"
            "2222222")
      << "a late frame is shown, though not after those that follow it";
}

TEST_F(GifPlaybackTest, ADelegateMayReplaceOrReleaseTheView) {
  auto view = play(-1);
  onLoop_ = [&](const auto& sender) {
    GifPlayback::of(sender).playAnimation(animation(blinkingGif({100, 100})), manager(), 2);
  };
  platform_.displayLink->tick(19);
  EXPECT_EQ(GifPlayback::of(view).loopsLeft(), 2);
  EXPECT_FALSE(GifPlayback::of(view).onScreen());
  onLoop_ = [&](const auto&) { view.reset(); };
  platform_.displayLink->tick(122);
  EXPECT_FALSE(view);
  EXPECT_EQ(manager()->displayViewCount(), 0u);
}

TEST_F(GifPlaybackTest, ReducedMotionWaitsForThePlayButton) {
  platform_.application->setPrefersReducedMotion(true);
  const auto view = play(-1);
  EXPECT_TRUE(view->showsPlayButton.value());
  EXPECT_EQ(shownBy(view), "0");
  EXPECT_EQ(manager()->displayViewCount(), 0u);
  EXPECT_THAT(events_, IsEmpty());
  view->play();
  view->play();
  EXPECT_FALSE(view->showsPlayButton.value());
  EXPECT_EQ(shownIn(view, 9), "000000001");
  EXPECT_THAT(events_, ElementsAre("start"));

  const auto other = play(-1);
  other->setAsset("gift");
  EXPECT_FALSE(other->showsPlayButton.value()) << "another image ends the waiting";
  other->play();
  EXPECT_EQ(manager()->displayViewCount(), 1u);
  EXPECT_FALSE(play(-1, blinkingGif({10}))->showsPlayButton.value()) << "nothing would move";
}

TEST_F(GifPlaybackTest, AnImageWithoutLengthOrADisplayIsStill) {
  AnimatedImage still = *animation(blinkingGif({10, 10}));
  still.stepCount = 0;
  const auto view = makeView();
  GifPlayback::of(view).playAnimation(std::make_shared<const AnimatedImage>(still), manager(), -1);
  install([](Platform& services) { services.displayLink = nullptr; });
  const auto other = play(-1);
  EXPECT_EQ(shownBy(view) + shownBy(other), "00");
  EXPECT_EQ(manager()->displayViewCount(), 0u);
  EXPECT_THAT(events_, IsEmpty());
}

TEST_F(GifPlaybackTest, LoadsFromTheNetworkAndThenFromItsCache) {
  const auto view = makeView();
  load(view, "https://a/x.GIF");
  EXPECT_TRUE(view->showsSpinner.value());
  EXPECT_EQ(shownBy(view), "-");
  reply(blinkingGif({10, 10}));
  EXPECT_FALSE(view->showsSpinner.value());
  EXPECT_EQ(shownBy(view), "0");
  EXPECT_THAT(events_, ElementsAre("start", "finish", "0"));
  EXPECT_EQ(shownIn(view, 9).back(), '1');

  events_.clear();
  load(view, "https://a/x.GIF");
  EXPECT_EQ(manager()->displayViewCount(), 0u) << "the load ends what was played";
  EXPECT_FALSE(view->showsSpinner.value());
  platform_.loop->run();
  EXPECT_THAT(events_, ElementsAre("start", "0"));
  EXPECT_EQ(platform_.session->requests.size(), 1u);
}

TEST_F(GifPlaybackTest, AFailureLeavesTheImage) {
  useWorkers(platform_.loop);
  const auto view = makeView();
  view->load("https://a/still.png");
  reply(PlainImageCodec::file(1, 1, 0x39));
  for (const auto& result :
       {ScriptedURLSession::failure(URLError::timedOut), ScriptedURLSession::reply(404, "<html>"),
        ScriptedURLSession::failure(URLError::dataLengthExceedsMaximum), URLSessionResult{}}) {
    load(view, "https://a/x.gif?" + std::to_string(platform_.session->requests.size()));
    platform_.session->answer(result);
    platform_.loop->run();
    EXPECT_FALSE(view->showsSpinner.value());
  }
  load(view, "https://a/x.gif?2");  // fails again without a request
  platform_.loop->run();
  EXPECT_EQ(platform_.session->requests.size(), 5u);
  EXPECT_EQ(shownBy(view), "9");
  EXPECT_THAT(events_, ElementsAre("fail https://a/x.gif?1 timedOut", "timedOut",  //
                                   "fail https://a/x.gif?2 noImages", "noImages",  //
                                   "fail https://a/x.gif?3 noImages", "noImages",  //
                                   "fail https://a/x.gif?4 noImages", "noImages",  //
                                   "fail https://a/x.gif?2 noImages", "noImages"));
}

TEST_F(GifPlaybackTest, ALaterLoadEndsTheFormer) {
  useWorkers(platform_.loop);
  const auto view = makeView();
  load(view, "https://a/1.gif");
  load(view, "https://a/2.gif");
  load(view, "https://a/3.png");
  EXPECT_THAT(events_, ElementsAre("canceled", "canceled"));
  EXPECT_EQ(platform_.session->cancelled, 2);
  EXPECT_FALSE(view->showsSpinner.value());
  reply(blinkingGif({10, 10}));
  reply(blinkingGif({10, 10}));
  EXPECT_EQ(shownBy(view), "-") << "both came too late";
  EXPECT_EQ(events_.size(), 2u);
  load(view, "https://a/4.gif");
  EXPECT_EQ(events_.back(), "canceled");
  platform_.session->waiting.pop_front();
  reply(blinkingGif({10, 10}));
  EXPECT_EQ(manager()->displayViewCount(), 1u);
  view->setAsset("gift");
  EXPECT_EQ(manager()->displayViewCount(), 0u);
  EXPECT_EQ(view->frame.value(), nullptr);

  auto gone = makeView();
  load(gone, "https://a/5.gif");
  gone.reset();
  reply(blinkingGif({10, 10}));
  EXPECT_EQ(events_.back(), "0") << "the completion runs without the view too";
}

TEST_F(GifPlaybackTest, ALoadThatACancellationBeginsIsReplacedToo) {
  const auto view = makeView();
  view->load("https://a/1.gif", [&](const auto&) { load(view, "https://a/2.gif"); });
  load(view, "https://a/3.png");
  EXPECT_FALSE(view->showsSpinner.value());
  EXPECT_EQ(platform_.session->cancelled, 2);
}

TEST_F(GifPlaybackTest, AGifUnderAnotherNameShowsItsFirstFrame) {
  useWorkers(platform_.loop);
  const auto view = makeView();
  load(view, "https://a/x.png");
  reply(blinkingGif({10, 10}));
  EXPECT_EQ(shownBy(view), "0");
  EXPECT_EQ(manager()->displayViewCount(), 0u);
  load(view, "https://a/y.png");
  reply("GIF89a");
  EXPECT_EQ(events_.back(), "dataConversion");
}

}  // namespace
}  // namespace orrelo::test
