#include "image/ImageView.h"
#include "support/TestPlatform.h"

#include <gmock/gmock.h>

namespace orrelo::test {
namespace {

using testing::ElementsAre;

class Listener final : public AutoLayoutImageViewDelegate {
 public:
  void imageViewDidResize(double width, double height) override { told.emplace_back(width, height); }

  std::vector<std::pair<double, double>> told;
};

class ImageViewTest : public testing::Test {
 protected:
  void reply(const std::string& body) {
    platform_.session->answer(ScriptedURLSession::reply(200, body));
    platform_.loop->run();
  }

  TestPlatform platform_;
};

TEST_F(ImageViewTest, TakesTheHeightThatItsImageHasAtItsWidth) {
  const auto view = std::make_shared<AutoLayoutImageView>();
  const auto listener = std::make_shared<Listener>();
  view->delegate = listener;
  view->setSize({200.0, 0.0});
  view->load("https://a/1.png", [&](const auto& result) {
    EXPECT_TRUE(std::holds_alternative<ImagePtr>(result));
    EXPECT_EQ(view->height.value(), 150.0);
  });
  EXPECT_EQ(view->height.value(), 0.0);
  reply(PlainImageCodec::file(8, 6));
  view->setSize({200.0, 150.0});
  view->setSize({200.0, 150.0});
  view->setSize({100.0, 150.0});
  EXPECT_EQ(view->height.value(), 75.0);
  using Size = std::pair<double, double>;
  EXPECT_THAT(listener->told, ElementsAre(Size(200, 150), Size(200, 150), Size(100, 75)));
  view->load("https://a/2.png");
  EXPECT_EQ(view->height.value(), 75.0) << "no change without an image";
  reply("none");
  EXPECT_EQ(listener->told.size(), 3u);
}

TEST_F(ImageViewTest, APictureOfTheKitsEndsALoad) {
  const auto view = std::make_shared<ImageView>();
  std::string ending;
  view->load("https://a/1.png", [&](const auto& result) { ending = std::get<Error>(result).caseName(); });
  view->setAsset("gift");
  EXPECT_EQ(ending, "canceled");
  reply(PlainImageCodec::file(8, 6));

  view->load("https://a/1.png");
  reply(PlainImageCodec::file(8, 6));
  ASSERT_TRUE(view->state.value().image);
  ImagePipeline::shared()->cache().memoryCache().removeAll();
  view->load("https://a/1.png");  // from the file, which cannot be cancelled
  view->setAsset("gift");
  platform_.loop->run();
  EXPECT_EQ(view->state.value(), (ImageView::State{"gift", nullptr}));
}

}  // namespace
}  // namespace orrelo::test
