#include "ui/NavigationController.h"
#include "ui/TabBarController.h"
#include "ui/ViewController.h"

#include <functional>
#include <gmock/gmock.h>

namespace orrelo::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Log = std::vector<std::string>;

/// Logs its lifecycle callbacks.
class Screen final : public ViewController {
 public:
  Screen(std::string name, Log& log) : name_(std::move(name)), log_(log) {}
  std::string_view kind() const override { return "Screen"; }
  using ViewController::addChild;
  using ViewController::removeChild;
  std::function<void()> onLoad = [] {};

 protected:
  void viewDidLoad() override {
    note("load");
    onLoad();
  }
  void viewWillAppear(bool) override { note("willAppear"); }
  void viewDidAppear(bool) override { note("didAppear"); }
  void viewWillDisappear(bool) override { note("willDisappear"); }
  void viewDidDisappear(bool) override { note("didDisappear"); }

 private:
  void note(const char* what) { log_.push_back(name_ + " " + what); }

  std::string name_;
  Log& log_;
};

/// Presents another screen while it loads, as a host may when this screen reports an event.
class Yielding final : public ViewController {
 public:
  std::string_view kind() const override { return "Yielding"; }
  std::function<void()> onLoad;

 protected:
  void viewDidLoad() override { onLoad(); }
};

class ViewControllerTest : public testing::Test {
 protected:
  std::shared_ptr<Screen> screen(const std::string& name) { return std::make_shared<Screen>(name, log_); }
  Log taken() { return std::exchange(log_, {}); }

  Log log_;
};

TEST_F(ViewControllerTest, ACoveringScreenHidesTheOneBeneathUntilItIsDismissed) {
  const auto host = screen("host");
  const auto top = screen("top");
  host->appear(false);
  EXPECT_THAT(taken(), ElementsAre("host load", "host willAppear", "host didAppear"));
  EXPECT_TRUE(host->present(top, true));
  EXPECT_THAT(taken(), ElementsAre("top load", "host willDisappear", "host didDisappear", "top willAppear",
                                   "top didAppear"));
  EXPECT_EQ(top->presentingViewController(), host);
  EXPECT_EQ(host->topmost(), top);
  top->dismiss(true);
  EXPECT_THAT(taken(),
              ElementsAre("top willDisappear", "top didDisappear", "host willAppear", "host didAppear"));
  EXPECT_EQ(top->presentingViewController(), nullptr);
  top->dismiss(true);
  EXPECT_THAT(taken(), IsEmpty());
}

TEST_F(ViewControllerTest, ADialogLeavesTheScreenBeneathVisible) {
  const auto host = screen("host");
  const auto dialog = screen("dialog");
  dialog->modalPresentationStyle = ModalPresentationStyle::overFullScreen;
  host->appear(false);
  taken();
  host->present(dialog, false);
  EXPECT_THAT(taken(), ElementsAre("dialog load", "dialog willAppear", "dialog didAppear"));
  dialog->dismiss(false);
  EXPECT_THAT(taken(), ElementsAre("dialog willDisappear", "dialog didDisappear"));
}

TEST_F(ViewControllerTest, AScreenAndItsContainersPresentOneScreenAtATime) {
  const auto inner = screen("inner");
  const auto navigation = NavigationController::create(inner);
  navigation->appear(false);
  const auto first = screen("first");
  const auto second = screen("second");
  EXPECT_TRUE(inner->present(first, false));
  EXPECT_FALSE(navigation->present(second, false));
  EXPECT_EQ(inner->presentingViewController(), nullptr);
  EXPECT_EQ(first->presentingViewController(), navigation);
  EXPECT_FALSE(second->isViewLoaded());
  EXPECT_TRUE(first->present(second, false));
  taken();
  inner->dismiss(false);  // dismisses both
  EXPECT_THAT(taken(), ElementsAre("second willDisappear", "second didDisappear", "inner willAppear",
                                   "inner didAppear"));
  EXPECT_EQ(navigation->topmost(), inner);
}

TEST_F(ViewControllerTest, AScreenThatIsPresentedWhileAnotherLoadsKeepsItsPlace) {
  const auto host = screen("host");
  const auto first = std::make_shared<Yielding>();
  const auto second = screen("second");
  host->appear(false);
  first->onLoad = [&] { EXPECT_TRUE(host->present(second, false)); };
  EXPECT_FALSE(host->present(first, false));
  EXPECT_EQ(host->presentedViewController(), second);
  EXPECT_EQ(first->presentingViewController(), nullptr);
  second->dismiss(false);
  EXPECT_TRUE(host->present(first, false));
}

TEST_F(ViewControllerTest, AStackShowsItsLastScreen) {
  const auto root = screen("root");
  const auto next = screen("next");
  const auto navigation = NavigationController::create(root);
  EXPECT_EQ(root->navigationController(), navigation);
  navigation->pushViewController(next, true);
  EXPECT_THAT(taken(), ElementsAre("root load", "next load"));  // in no window yet
  navigation->appear(false);
  EXPECT_THAT(taken(), ElementsAre("next willAppear", "next didAppear"));
  EXPECT_TRUE(navigation->state().animated);
  EXPECT_EQ(navigation->popViewController(true), next);
  EXPECT_THAT(taken(),
              ElementsAre("next willDisappear", "next didDisappear", "root willAppear", "root didAppear"));
  EXPECT_EQ(next->navigationController(), nullptr);
  EXPECT_EQ(navigation->popViewController(true), nullptr);
  EXPECT_EQ(navigation->topViewController(), root);
}

TEST_F(ViewControllerTest, TheSelectedTabIsVisibleAndLeadsToTheTopmostScreen) {
  const auto first = screen("first");
  const auto inner = screen("inner");
  const auto tabs = TabBarController::create({first, nullptr, NavigationController::create(inner), first});
  EXPECT_EQ(tabs->state().viewControllers.size(), 2U);
  tabs->appear(false);
  EXPECT_EQ(tabs->topmost(), first);
  taken();
  tabs->select(1);
  EXPECT_THAT(taken(), ElementsAre("first willDisappear", "first didDisappear", "inner willAppear",
                                   "inner didAppear"));
  EXPECT_EQ(tabs->topmost(), inner);
  tabs->select(2);
  tabs->select(1);
  EXPECT_THAT(taken(), IsEmpty());
  const auto above = screen("above");
  ASSERT_TRUE(inner->present(above, false));
  EXPECT_EQ(above->presentingViewController(), tabs);
  EXPECT_EQ(tabs->topmost(), above);
  EXPECT_EQ(TabBarController::create({})->selectedViewController(), nullptr);
}

TEST_F(ViewControllerTest, ChildrenBesideEachOtherComeAndGoWithTheirScreen) {
  const auto home = screen("home");
  const auto list = screen("list");
  const auto entry = screen("entry");
  home->onLoad = [&] {
    EXPECT_TRUE(home->addChild(list));
    EXPECT_TRUE(home->addChild(entry));
    EXPECT_FALSE(home->addChild(list));
    EXPECT_FALSE(entry->addChild(home));
  };
  const auto navigation = NavigationController::create(home);
  EXPECT_THAT(taken(), ElementsAre("home load", "list load", "entry load"));
  navigation->appear(false);
  EXPECT_THAT(taken(), ElementsAre("home willAppear", "list willAppear", "list didAppear", "entry willAppear",
                                   "entry didAppear", "home didAppear"));
  EXPECT_EQ(entry->navigationController(), navigation);
  EXPECT_EQ(navigation->topmost(), home) << "they are parts of it";
  const auto above = screen("above");
  EXPECT_TRUE(entry->present(above, false));
  EXPECT_THAT(taken(), ElementsAre("above load", "home willDisappear", "list willDisappear",
                                   "list didDisappear", "entry willDisappear", "entry didDisappear",
                                   "home didDisappear", "above willAppear", "above didAppear"));
  above->dismiss(false);
  taken();
  home->removeChild(list);
  home->removeChild(list);
  EXPECT_THAT(taken(), ElementsAre("list willDisappear", "list didDisappear"));
  EXPECT_EQ(list->parent(), nullptr);
  home->addChild(list);  // last of them now
  EXPECT_THAT(taken(), ElementsAre("list willAppear", "list didAppear"));
  navigation->disappear(false);
  EXPECT_THAT(taken(), ElementsAre("home willDisappear", "entry willDisappear", "entry didDisappear",
                                   "list willDisappear", "list didDisappear", "home didDisappear"));
}

TEST_F(ViewControllerTest, AScreenThatIsShownIsNotShownAgain) {
  const auto inner = screen("inner");
  const auto navigation = NavigationController::create(inner);
  const auto above = screen("above");
  ASSERT_TRUE(inner->present(above, false));
  EXPECT_FALSE(above->present(navigation, false));
  EXPECT_FALSE(above->present(inner, false));
  EXPECT_FALSE(above->present(above, false));
  EXPECT_FALSE(above->present(nullptr, false));
  for (const auto& refused : {inner, above, std::shared_ptr<Screen>()}) {
    navigation->pushViewController(refused, false);
  }
  navigation->pushViewController(navigation, false);
  EXPECT_THAT(navigation->state().viewControllers, ElementsAre(inner));
  EXPECT_EQ(navigation->topmost(), above);
  above->dismiss(false);
  navigation->pushViewController(above, false);
  EXPECT_EQ(navigation->topViewController(), above);
}

TEST_F(ViewControllerTest, ADismissedScreenIsReleased) {
  std::weak_ptr<ViewController> gone;
  const auto host = screen("host");
  host->appear(false);
  {
    const auto top = NavigationController::create(screen("top"));
    gone = top;
    host->present(top, false);
    top->dismiss(false);
  }
  EXPECT_TRUE(gone.expired());
}

TEST_F(ViewControllerTest, AScreenPresentedWhileAnotherLoadsAppears) {
  const auto host = screen("host");
  const auto above = screen("above");
  host->onLoad = [&] { host->present(above, false); };
  host->appear(false);
  EXPECT_TRUE(above->isVisible());
}

}  // namespace
}  // namespace orrelo::test
