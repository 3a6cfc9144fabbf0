#include "viewkit/ToastLayer.h"
#include "viewkit/base/StackView.h"

#include <gmock/gmock.h>

namespace orrelo::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(StackViewTest, SpacingBelongsToTheLastViewAndTheLatterHolds) {
  const auto first = std::make_shared<StackView>();
  const auto second = std::make_shared<StackView>();
  StackView stack;
  stack.setCustomSpacingAfterLast(5.0);
  EXPECT_EQ(stack.state.value(), StackView::State());
  stack.addArrangedSubview(first);
  stack.setCustomSpacingAfterLast(8.0);
  stack.setCustomSpacingAfterLast(12.0);
  stack.addArrangedSubview(second, 20.0);
  EXPECT_EQ(stack.state.value().arrangedSubviews,
            (std::vector<StackView::Arranged>{{first, 0.0, 12.0}, {second, 20.0, 0.0}}));
}

class ToastLayerTest : public testing::Test {
 protected:
  std::vector<std::string> standing() const {
    std::vector<std::string> messages;
    for (const auto& toast : layer_.toasts.value()) messages.push_back(toast->message);
    return messages;
  }

  ToastLayer layer_;
};

TEST_F(ToastLayerTest, EqualToastsNeverStandAtOnceAndDifferentOnesMay) {
  layer_.showToast("하나", Color());
  const auto first = layer_.toasts.value().at(0);
  layer_.showToast("하나", Color{1.0, 0.0, 0.0, 1.0});
  EXPECT_THAT(layer_.toasts.value(), ElementsAre(first));
  layer_.showToast("둘", Color());
  layer_.showToast("", Color());
  EXPECT_THAT(standing(), ElementsAre("하나", "둘", ""));
  layer_.fadeDidFinish(*first);
  EXPECT_THAT(standing(), ElementsAre("둘", ""));
  layer_.fadeDidFinish(*first);
  layer_.showToast("하나", Color());
  EXPECT_THAT(standing(), ElementsAre("둘", "", "하나"));
}

TEST_F(ToastLayerTest, AToastIsSeenForThreeSecondsOnALittleOfItsColour) {
  layer_.showToast("하나", Color{1.0, 0.5, 0.0, 1.0});
  const auto toast = layer_.toasts.value().at(0);
  EXPECT_EQ(toast->backgroundColor, (Color{1.0, 0.5, 0.0, 0.87}));
  EXPECT_EQ(toast->accessibilityIdentifier, "OrreloToast");
  EXPECT_EQ(ToastView::fade.delay + ToastView::fade.duration, std::chrono::seconds(3));
  EXPECT_EQ(ToastView::fade.delay, std::chrono::seconds(1));
}

}  // namespace
}  // namespace orrelo::test
