#include "RenderedPage.h"
#include "modular/roulette/RouletteComponent.h"
#include "support/LogCapture.h"

#include <gmock/gmock.h>
#include <numbers>

namespace orrelo::test {
namespace {

using namespace std::chrono_literals;
using testing::AllOf;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using Signal = Application::Signal;

constexpr double degree = std::numbers::pi / 180.0;

Json wheel(const Json& progress) {
  auto json = block("roulette");
  json["progress"] = progress;
  return json;
}
const Json running{{"state", "running"}, {"result_index", 2}, {"done_url", "/spun"}};
const Json done{{"state", "done"}, {"result_index", 2}};
const Json idle{{"state", "idle"}};

class RouletteTest : public RenderedPage {
 protected:
  std::shared_ptr<RouletteView> wheelOf(const Json& progress) {
    return render<RouletteView>("roulette", wheel(progress));
  }
  std::shared_ptr<RouletteView> painted(const Json& progress) {
    auto view = wheelOf(progress);
    paint(*view);
    return view;
  }
  void paint(RouletteView& view) {
    view.wheelDidAppear();
    platform_.loop->run();
  }
};

TEST_F(RouletteTest, AWheelIsReadWithWhatItsStateNeeds) {
  const auto outcome = [](const Json& json) -> std::string {
    try {
      JsonParser parser;
      const auto text = json.dump();
      const RouletteComponent component(parser.parse(text).objectValue());
      const auto* const spin = std::get_if<RouletteComponent::Running>(&component.state);
      const auto* const end = std::get_if<RouletteComponent::End>(&component.state);
      if (spin != nullptr) return std::to_string(spin->endIndex) + " " + spin->spinDidEndActionUrl;
      return end != nullptr ? "end " + std::to_string(end->index) : "idle";
    } catch (const Error& error) {
      return error.caseName();
    } catch (const StopsThrow::Stop& stop) {
      return stop.message;
    }
  };
  const auto changed = [](Json progress, const Json& change) {
    progress.update(change);
    return wheel(progress);
  };
  const StopsThrow stops;
  const std::string stop = R"(A roulette that is "done" has no "result_index")";
  EXPECT_EQ(outcome(wheel(running)), "2 /spun");
  EXPECT_EQ(outcome(changed(running, {{"result_index", nullptr}})), "invalidResponse");
  EXPECT_EQ(outcome(changed(running, {{"done_url", nullptr}})), "invalidResponse");
  EXPECT_EQ(outcome(changed(running, {{"result_index", "2"}})), "typeMismatch");
  EXPECT_EQ(outcome(wheel(done)), "end 2");
  EXPECT_EQ(outcome(wheel({{"state", "done"}})), stop);
  EXPECT_EQ(outcome(wheel(idle)), "idle");
  EXPECT_EQ(outcome(wheel({{"state", "Idle"}})), "invalidState");
  EXPECT_EQ(outcome({{"progress", {{"state", "done"}}}}), stop) << "read before the missing fields";
}

TEST_F(RouletteTest, NewerItemsWinAndOlderOnesAreTextsAlone) {
  const auto itemsOf = [](const Json& json) {
    const auto page = decodePage(pageOf({"roulette"}, {{"roulette", Json::array({json})}}));
    return dynamic_cast<const RouletteComponent&>(*page.components.at(0)).items;
  };
  auto json = wheel(idle);
  EXPECT_EQ(itemsOf(json)[0], (RouletteItem{"쿠폰", "커피"}));
  json["items_v2"] = nullptr;
  EXPECT_EQ(itemsOf(json)[2], (RouletteItem{"", "포인트"}));
  json["items_v2"] = Json::array();
  EXPECT_THAT(itemsOf(json), IsEmpty());
}

TEST_F(RouletteTest, TheMiddleOfASectorComesUnderThePin) {
  EXPECT_EQ(RouletteView::finalAngle(0, 8), 247.5);
  EXPECT_EQ(RouletteView::finalAngle(7, 8), 292.5);
  EXPECT_EQ(RouletteView::finalAngle(1, 2), 0.0);
  EXPECT_EQ(RouletteView::finalAngle(9, 8), 202.5);  // the angle of index 1 plus a full turn
}

TEST_F(RouletteTest, ASpinIsPlayedOnceTheWheelIsThereAndItsEndIsReportedOnce) {
  const auto view = wheelOf(running);
  EXPECT_THAT(reports_->names, ElementsAre("ol_roulette_spin_wheel_start"));
  platform_.loop->run();
  EXPECT_EQ(view->state.value(), RouletteView::State());
  view->animationDidStop(true);
  paint(*view);
  const Animation spin{.from = 0.0, .to = (45.0 + 2880.0) * degree, .duration = 4s};
  EXPECT_EQ(view->state.value(), (RouletteView::State{.spin = spin}));
  paint(*view);
  view->animationDidStop(false);
  EXPECT_EQ(view->state.value().spin, spin);
  EXPECT_THAT(requests_->lines, IsEmpty());
  for (int i = 0; i < 2; ++i) view->animationDidStop(true);
  EXPECT_EQ(view->state.value(),
            (RouletteView::State{.rotation = spin.to, .outcome = "결과: 포인트 1,000P"}));
  EXPECT_THAT(requests_->lines, ElementsAre("participate /spun"));
  EXPECT_EQ(reports_->names.size(), 1U);

  const auto gone = painted(running);
  page_.reset();
  gone->animationDidStop(true);
  EXPECT_EQ(requests_->lines.size(), 1U) << "a page that is gone asks for nothing";
}

TEST_F(RouletteTest, AFinishedPageShowsWhereTheSpinLeftTheWheel) {
  const auto view = wheelOf(done);
  EXPECT_THAT(reports_->names, ElementsAre("ol_roulette_spin_wheel_end"));
  EXPECT_FALSE(view->state.value().isEnabled);
  EXPECT_DOUBLE_EQ(view->state.value().rotation, 45.0 * degree);  // already before it appears
  paint(*view);
  EXPECT_EQ(view->accessibilityLabel(),
            "결과: 포인트 1,000P, 룰렛, 경품: 쿠폰 커피, 꽝, 포인트 1,000P, 기프티콘 아이스크림");
  EXPECT_TRUE(view->drawing().veil);
  view->animationDidStop(true);
  EXPECT_THAT(requests_->lines, IsEmpty());

  const auto waiting = painted(idle);
  EXPECT_EQ(waiting->state.value(), RouletteView::State());
  EXPECT_EQ(reports_->names.size(), 1U);
  EXPECT_EQ(waiting->accessibilityLabel(), "룰렛, 경품: 쿠폰 커피, 꽝, 포인트 1,000P, 기프티콘 아이스크림");
}

TEST_F(RouletteTest, AnIndexBeyondTheSectorsLandsByItsAngle) {
  for (const std::int64_t index : {6, -2}) {
    const auto view = painted({{"state", "done"}, {"result_index", index}});
    EXPECT_NEAR(std::remainder(view->state.value().rotation - 45.0 * degree, 360.0 * degree), 0.0, 1e-9);
    EXPECT_EQ(view->state.value().outcome, "결과: 포인트 1,000P");
  }
}

TEST_F(RouletteTest, AWheelWithoutSectorsNeverTurns) {
  for (const auto& progress : {running, done}) {
    auto json = wheel(progress);
    json["items_v2"] = Json::array();
    const auto view = render<RouletteView>("roulette", json);
    paint(*view);
    view->animationDidStop(true);
    EXPECT_EQ(view->state.value(), (RouletteView::State{.isEnabled = progress == running}));
  }
  EXPECT_THAT(requests_->lines, IsEmpty());
  EXPECT_THAT(reports_->names, ElementsAre("ol_roulette_spin_wheel_start", "ol_roulette_spin_wheel_end"));
}

TEST_F(RouletteTest, AWheelThatCannotBePaintedStandsStillAndSaysWhy) {
  const LogCapture log;
  const auto view = wheelOf(running);
  view->wheelDidFail(makeError(OrreloError::unknown));
  platform_.loop->run();
  view->animationDidStop(true);
  EXPECT_THAT(log.lines(),
              Contains(AllOf(HasSubstr("[ERROR]"),
                             HasSubstr("Start Roulette Animation Failure: " +
                                       makeError(OrreloError::unknown).localizedDescription()))));
  EXPECT_FALSE(view->state.value().spin);
  EXPECT_THAT(requests_->lines, IsEmpty());
}

TEST_F(RouletteTest, ASpinStandsStillInTheBackgroundAndGoesOn) {
  const auto view = painted(running);
  const auto isPausedAfter = [&](Signal signal) {
    platform_.application->send(signal);
    return view->state.value().isPaused;
  };
  EXPECT_FALSE(isPausedAfter(Signal::willEnterForeground));
  EXPECT_TRUE(isPausedAfter(Signal::didEnterBackground));
  EXPECT_TRUE(view->state.value().spin);
  EXPECT_FALSE(isPausedAfter(Signal::willEnterForeground));
  view->state.change([](RouletteView::State& state) { state.isPaused = true; });
  isPausedAfter(Signal::didEnterBackground);
  EXPECT_TRUE(isPausedAfter(Signal::willEnterForeground)) << "it was paused before";
}

TEST_F(RouletteTest, ReducedMotionEndsTheSpinAtOnceAndReportsIt) {
  platform_.application->setPrefersReducedMotion(true);
  const auto view = wheelOf(running);
  EXPECT_THAT(requests_->lines, IsEmpty());
  paint(*view);
  EXPECT_EQ(view->state.value(),
            (RouletteView::State{.rotation = (45.0 + 2880.0) * degree, .outcome = "결과: 포인트 1,000P"}));
  EXPECT_THAT(requests_->lines, ElementsAre("participate /spun"));
  EXPECT_THAT(reports_->names, ElementsAre("ol_roulette_spin_wheel_start"));
}

}  // namespace
}  // namespace orrelo::test
