#include "image/ImageLoader.h"
#include "support/LogCapture.h"
#include "support/TestPlatform.h"

#include <filesystem>
#include <gmock/gmock.h>
#include <stdexcept>

namespace orrelo::test {
namespace {

using testing::ElementsAre;

class TestView final : public ImageTarget {
 public:
  void setImage(const ImagePtr& image) override {
    shown = image;
    history.push_back(image ? std::to_string(image->bitmap.width) : "-");
  }
  Size boundsSize() const override { return bounds; }
  double scale() const override { return 2.0; }

  Size bounds = {4.0, 4.0};
  ImagePtr shown;
  /// The widths, "-" for none.
  std::vector<std::string> history;
};

/// Transforms an image to a height of one pixel, or does what `gives` says.
class Flattening final : public ImageTransforming {
 public:
  enum Gives { image, nothing, trouble };

  explicit Flattening(Gives gives = image) : gives_(gives) {}
  std::string identifier() const override { return "#flat"; }
  ImagePtr transform(const ImagePtr& source) const override {
    ++runs;
    if (gives_ == trouble) throw std::runtime_error("trouble");
    auto flat = source->bitmap;
    flat.height = 1;
    return gives_ == image ? std::make_shared<const Image>(Image{flat, nullptr}) : nullptr;
  }

  mutable int runs = 0;

 private:
  Gives gives_;
};

class ImageLoaderTest : public testing::Test {
 protected:
  ImageLoaderTest() { platform_.application->setScreenScale(2.0); }

  ImagePipeline::Completion note(const std::string& name) {
    return [this, name](const Result<ImagePtr>& result) {
      const auto* const error = std::get_if<Error>(&result);
      heard_.push_back(name + ": " + (error != nullptr ? error->domain() + "." + error->caseName() : "ok"));
    };
  }
  void load(const std::string& url, const std::shared_ptr<TestView>& view, const std::string& name = "") {
    ImageLoader::load(url, view, note(name));
  }
  std::optional<DownloadTask<ImagePtr>> set(const std::string& url, ImageLoadOptions options,
                                            const std::string& name = "") {
    options.completion = note(name);
    return ImageLoad::setImage(view_, Url::parse(url), options);
  }
  void reply(const std::string& body = PlainImageCodec::file(8, 6)) {
    platform_.session->answer(ScriptedURLSession::reply(200, body));
    platform_.loop->run();
  }
  std::string requested() const {
    std::string urls;
    for (const auto& request : platform_.session->requests) urls += request.url.text() + " ";
    return urls;
  }
  MemoryCache& memory() { return ImagePipeline::shared()->cache().memoryCache(); }

  TestPlatform platform_;
  std::shared_ptr<TestView> view_ = std::make_shared<TestView>();
  std::vector<std::string> heard_;
};

TEST_F(ImageLoaderTest, FetchesOnceThenServesFromMemoryThenFromDisk) {
  load("https://a/x.png", view_, "net");
  EXPECT_EQ(view_->shown, nullptr);
  platform_.session->answer(ScriptedURLSession::reply(200, PlainImageCodec::file(8, 6)));
  EXPECT_TRUE(heard_.empty()) << "decoded on a worker";
  platform_.loop->run();
  ASSERT_TRUE(view_->shown);
  EXPECT_EQ(view_->shown->width(), 4.0) << "at the screen's scale";

  const auto first = view_->shown;
  load("https://a/x.png", view_, "memory");
  EXPECT_EQ(view_->shown, first) << "at once, the same bitmap";
  memory().removeAll();
  load("https://a/x.png", view_, "disk");
  platform_.loop->run();
  EXPECT_EQ(view_->shown->bitmap.width, 8);
  EXPECT_THAT(heard_, ElementsAre("net: ok", "memory: ok", "disk: ok"));
  EXPECT_EQ(requested(), "https://a/x.png ");
  EXPECT_THAT(view_->history, ElementsAre("-", "8", "-", "8", "-", "8"));
}

TEST_F(ImageLoaderTest, AHundredViewsShareOneRequestAndOneBitmap) {
  std::vector<std::shared_ptr<TestView>> views;
  const auto loadAll = [&] {
    views.clear();
    for (int i = 0; i < 100; ++i) load("https://a/x.png", views.emplace_back(std::make_shared<TestView>()));
  };
  loadAll();
  reply();
  for (const auto& view : views) ASSERT_EQ(view->shown, views[0]->shown);
  EXPECT_TRUE(views[0]->shown);
  EXPECT_EQ(platform_.codec->decodes, 1);

  views.clear();
  loadAll();  // at once, with the bitmap that is kept for the next screen
  for (const auto& view : views) ASSERT_EQ(view->shown, views[0]->shown);
  EXPECT_TRUE(views[0]->shown);
  EXPECT_EQ(platform_.codec->decodes, 1);

  views.clear();
  platform_.application->send(Application::Signal::didEnterBackground);
  loadAll();  // the bitmap was given back: the file in memory is decoded again, once
  EXPECT_FALSE(views[0]->shown);
  platform_.loop->run();
  for (const auto& view : views) ASSERT_EQ(view->shown, views[0]->shown);
  EXPECT_TRUE(views[0]->shown);
  EXPECT_EQ(platform_.codec->decodes, 2);
  EXPECT_EQ(requested(), "https://a/x.png ");
  EXPECT_EQ(heard_.size(), 300u);
}

TEST_F(ImageLoaderTest, TwoFilesAreDecodedAtATime) {
  std::vector<std::shared_ptr<TestView>> views;
  for (const std::string name : {"1", "2", "3", "4", "5"}) {
    load("https://a/" + name, views.emplace_back(std::make_shared<TestView>()), name);
    platform_.session->answer(ScriptedURLSession::reply(200, PlainImageCodec::file(8, 6)));
  }
  EXPECT_EQ(platform_.loop->pending(), 2u);
  platform_.loop->run();
  EXPECT_THAT(heard_, ElementsAre("1: ok", "2: ok", "3: ok", "4: ok", "5: ok"));
}

TEST_F(ImageLoaderTest, ASecondLoadEndsTheFirst) {
  load("https://a/1.png", view_, "first");
  load("https://a/2.png", view_, "second");
  EXPECT_THAT(heard_, ElementsAre("first: DownloaderError.canceled"));
  EXPECT_EQ(platform_.session->cancelled, 1);
  reply(PlainImageCodec::file(1, 1));
  EXPECT_EQ(view_->shown, nullptr);
  reply(PlainImageCodec::file(2, 2));
  EXPECT_EQ(view_->shown->bitmap.width, 2);
}

TEST_F(ImageLoaderTest, ALoadThatIsBegunAtEachFailureHoldsUpNoOther) {
  auto options = ImageLoadOptions{};
  options.completion = [&](const Result<ImagePtr>& result) {
    note("again")(result);
    if (heard_.size() > 9) FAIL() << "without end";
    if (result.index() != 0) ImageLoad::setImage(view_, Url::parse("https://a/1.png"), options);
  };
  ImageLoad::setImage(view_, Url::parse("https://a/1.png"), options);
  load("https://a/2.png", view_, "second");
  EXPECT_THAT(heard_, ElementsAre("again: DownloaderError.canceled"));
  EXPECT_EQ(requested(), "https://a/1.png https://a/1.png https://a/2.png ");
  platform_.session->waiting.pop_front();
  reply(PlainImageCodec::file(1, 1));
  EXPECT_EQ(heard_.back(), "again: ok");
  EXPECT_EQ(view_->shown, nullptr) << "the view has started another load";
  reply(PlainImageCodec::file(2, 2));
  EXPECT_EQ(view_->shown->bitmap.width, 2);
}

TEST_F(ImageLoaderTest, AnImageOfAFormerUrlIsDropped) {
  load("https://a/1.png", view_);
  reply(PlainImageCodec::file(1, 1));
  memory().removeAll();
  heard_.clear();
  load("https://a/1.png", view_, "disk");  // a read cannot be cancelled
  load("https://a/2.png", view_, "net");
  platform_.loop->run();
  EXPECT_THAT(heard_, ElementsAre("disk: ok"));
  EXPECT_EQ(view_->shown, nullptr);

  set("", {}, "none");
  EXPECT_EQ(heard_.back(), "net: DownloaderError.canceled");
  load("https://a/3.png", view_, "gone");
  view_.reset();
  platform_.session->waiting.pop_front();
  reply();
  EXPECT_EQ(heard_.back(), "gone: ok") << "the completion runs without the view too";
}

TEST_F(ImageLoaderTest, ACompletionMayLoadAnotherImage) {
  load("https://a/1.png", view_);
  reply();
  const auto decoded = view_->shown;
  auto options = ImageLoadOptions{};
  options.completion = [&](const auto&) { load("https://a/2.png", view_, "two"); };
  ImageLoad::setImage(view_, Url::parse("https://a/1.png"), options);  // completes at once
  load("https://a/3.png", view_, "three");
  EXPECT_THAT(heard_, ElementsAre(": ok", "two: DownloaderError.canceled"));
}

TEST_F(ImageLoaderTest, AFailureLeavesThePlaceholder) {
  const auto placeholder = std::make_shared<const Image>(Image{{3, 3, 1.0, {}}, nullptr});
  set("https://a/1.png", {.placeholder = placeholder}, "lost");
  platform_.session->answer(ScriptedURLSession::failure(URLError::timedOut));
  set("https://a/1.png", {.placeholder = placeholder}, "html");
  reply("<html>");
  EXPECT_EQ(view_->shown, placeholder);
  EXPECT_THAT(heard_, ElementsAre("lost: URLError.timedOut", "html: DownloaderError.dataConversion"));
  EXPECT_FALSE(memory().contains("https://a/1.png"));
  auto without = Platform::current();
  without.imageCodec = nullptr;
  Platform::install(without);
  set("https://a/1.png", {}, "no codec");
  reply();
  EXPECT_EQ(heard_.back(), "no codec: DownloaderError.dataConversion");
}

TEST_F(ImageLoaderTest, AFailedReadIsNotFollowedByADownload) {
  load("https://a/1.png", view_);
  reply();
  memory().removeAll();
  std::filesystem::resize_file(platform_.folder.path() /
                                   "com.tamrenzo.OrreloSDK.DiskCache.com.tamrenzo.OrreloSDK.MemoryCache" /
                                   WrappedKey("https://a/1.png").key(),
                               0);
  load("https://a/1.png", view_, "empty");
  platform_.loop->run();
  EXPECT_EQ(heard_.back(), "empty: ImagePipelineInputStreamError.emptyFile");
  EXPECT_EQ(platform_.session->requests.size(), 1u);
}

TEST_F(ImageLoaderTest, ATransformationThatGivesNothingOrThrowsIsAnError) {
  for (const auto gives : {Flattening::nothing, Flattening::trouble}) {
    set("https://a/2.png", {.imageTransformer = std::make_shared<Flattening>(gives)}, "it");
    reply();
    EXPECT_EQ(heard_.back(), "it: ImagePipelineError.imageTransformingError");
    EXPECT_EQ(view_->shown, nullptr);
  }
  EXPECT_EQ(heard_.size(), 2u);
}

TEST_F(ImageLoaderTest, ViewsShareATransformation) {
  const auto flat = std::make_shared<Flattening>();
  std::vector<std::shared_ptr<TestView>> views;
  const auto loadAll = [&] {
    for (int i = 0; i < 100; ++i) {
      ImageLoad::setImage(views.emplace_back(std::make_shared<TestView>()), Url::parse("https://a/1.png"),
                          {.imageTransformer = flat});
    }
  };
  loadAll();
  reply();
  loadAll();  // at once, from memory
  for (const auto& view : views) ASSERT_EQ(view->shown, views[0]->shown);
  ASSERT_TRUE(views[0]->shown);
  EXPECT_EQ(views[0]->shown->bitmap.height, 1);
  EXPECT_FALSE(memory().contains("https://a/1.png"));
  EXPECT_EQ(views[0]->shown->encoded, memory().value("https://a/1.png#flat"));
  EXPECT_EQ(flat->runs, 1);
  EXPECT_EQ(platform_.codec->decodes, 1);
  EXPECT_EQ(platform_.session->requests.size(), 1u);
}

TEST_F(ImageLoaderTest, DownsamplingIsToTheViewsPixels) {
  set("https://a/1.png", {.displayOptions = {.downsamples = true}});
  reply(PlainImageCodec::file(16, 12));
  EXPECT_EQ(view_->shown->bitmap.width, 8);
  EXPECT_TRUE(memory().contains("https://a/1.pngcom.velmark.DownsamplingImageTransformer@(8.0, 8.0)"));
  set("https://a/1.png",
      {.displayOptions = {.downsamples = true}, .imageTransformer = std::make_shared<Flattening>()});
  reply(PlainImageCodec::file(16, 12));
  EXPECT_EQ(view_->shown->bitmap.width, 8);
  EXPECT_EQ(view_->shown->bitmap.height, 1);
  EXPECT_TRUE(memory().contains("https://a/1.pngcom.velmark.DownsamplingImageTransformer@(8.0, 8.0)#flat"));
}

TEST_F(ImageLoaderTest, TheTextIsEscapedAsAQuery) {
  load("https://a/그 림/%20[1]#x?b=\"c\"&d=:@/?", view_);
  EXPECT_EQ(requested(), "https://a/%EA%B7%B8%20%EB%A6%BC/%2520%5B1%5D%23x?b=%22c%22&d=:@/? ");
}

TEST_F(ImageLoaderTest, ATextThatIsNoUrlIsLoggedAndChangesNothing) {
  load("https://a/1.png", view_, "before");
  const LogCapture log;
  for (const std::string text : {"", "https://a:b/1.png"}) load(text, view_, "bad");
  EXPECT_THAT(log.lines(), ElementsAre(testing::EndsWith("ImageLoader:  is not valid URL"),
                                       testing::EndsWith("ImageLoader: https://a:b/1.png is not valid URL")));
  reply();
  EXPECT_THAT(heard_, ElementsAre("before: ok"));
  EXPECT_TRUE(view_->shown);
}

TEST_F(ImageLoaderTest, TheExtensionOfThePathNamesAnAnimation) {
  for (const auto* const url : {"https://a/x.gif", "https://a/b.c/X.GIF?size=2", "https://a/x.GiF/",
                                "https://a/gif", "https://a/.gif", "https://a/x.gif.png?x.gif"}) {
    load(url, view_);
    reply("none");
  }
  EXPECT_THAT(heard_, ElementsAre(": GifParseError.noImages", ": GifParseError.noImages",
                                  ": GifParseError.noImages", ": DownloaderError.dataConversion",
                                  ": DownloaderError.dataConversion", ": DownloaderError.dataConversion"));
}

}  // namespace
}  // namespace orrelo::test
