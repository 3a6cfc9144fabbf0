#include "DevService.h"
#include "image/ImageView.h"
#include "quick/platform/QtImageCodec.h"
#include "support/TemporaryFolder.h"

#include <orrelo/Platform.h>

#include <cstring>
#include <gmock/gmock.h>

namespace orrelo::test {
namespace {

using devservice::DevService;
using Kind = devservice::Fault::Kind;

/// A file of the service over HTTPS, through the codec, in a view.
class ImageOverHttpsTest : public testing::Test {
 protected:
  ImageOverHttpsTest() {
    service_.start();
    auto platform = Platform::posix({.bundleIdentifier = "images",
                                     .dataDirectory = folder_.path() / "data",
                                     .cacheDirectory = folder_.path() / "cache"});
    platform.imageCodec = codec_;
    platform.urlSession->trust(service_.baseUrl(), service_.certificatePath());
    Platform::install(std::move(platform));
  }

  /// "ok", or the error's name.
  std::string load() {
    std::string outcome = "nothing";
    view_->load(service_.baseUrl() + "/images/gift.png", [&](const Result<ImagePtr>& result) {
      const auto* const error = std::get_if<Error>(&result);
      outcome = error != nullptr ? error->caseName() : "ok";
      RunLoop::main().stop();
    });
    RunLoop::main().runFor(std::chrono::seconds(30));
    return outcome;
  }
  void order(Kind kind, const std::string& body = "") {
    service_.orderFault({.kind = kind, .pathSuffix = "/gift.png", .count = 1, .body = body});
  }

  TemporaryFolder folder_;
  DevService service_{{.dataDirectory = folder_.path() / "service"}};
  std::shared_ptr<quick::QtImageCodec> codec_ = std::make_shared<quick::QtImageCodec>();
  std::shared_ptr<ImageView> view_ = std::make_shared<ImageView>();
};

TEST_F(ImageOverHttpsTest, WhatIsBrokenLeavesTheViewEmptyAndTheNextLoadFillsIt) {
  order(Kind::truncate);
  EXPECT_EQ(load(), "networkConnectionLost");
  order(Kind::drop);
  EXPECT_EQ(load(), "networkConnectionLost");
  order(Kind::status, "<html>");
  EXPECT_EQ(load(), "dataConversion");
  EXPECT_EQ(view_->state.value().image, nullptr);

  ASSERT_EQ(load(), "ok");
  const auto image = view_->state.value().image;
  ASSERT_TRUE(image);
  const auto expected = codec_->decode(*image->encoded);
  ASSERT_TRUE(expected);
  EXPECT_EQ(image->bitmap.width, 128);
  EXPECT_EQ(std::memcmp(image->bitmap.pixels.get(), expected->pixels.get(), expected->size()), 0);
  EXPECT_EQ(service_.requestCount("/gift.png"), 4);
  EXPECT_EQ(load(), "ok");
  EXPECT_EQ(service_.requestCount("/gift.png"), 4) << "from the cache";

  // A complete reply with half a file.
  order(Kind::body, image->encoded->substr(0, image->encoded->size() / 2));
  ImagePipeline::shared()->cache().memoryCache().removeAll();
  ImagePipeline::shared()->cache().diskCache().clear();
  ImagePipeline::shared()->cache().diskCache().finish(std::chrono::seconds(10));
  EXPECT_EQ(load(), "dataConversion");
}

}  // namespace
}  // namespace orrelo::test
