#include "QuickTest.h"
#include "quick/host/WarmUp.h"
#include "quick/platform/IdleWork.h"
#include "support/ExplanationCapture.h"

#include <QQmlComponent>

namespace orrelo::test {
namespace {

class WarmUpTest : public QuickTest {
 protected:
  ~WarmUpTest() override { quick::setWarmUpEnabled(true); }

  /// Invalid if the warm-up has not begun for this engine.
  QVariant isDone() const { return engine_->property(quick::WarmUp::isDone); }
  /// The kit's files that have been loaded in advance; the engine owns them.
  QList<QQmlComponent*> loaded() const {
    return engine_->findChildren<QQmlComponent*>(QString(), Qt::FindDirectChildrenOnly);
  }
};

TEST_F(WarmUpTest, WhileTheHostRestsTheFilesOfACampaignAreLoaded) {
  const ExplanationCapture log;
  ASSERT_TRUE(waitFor([this] { return isDone().toBool(); }));
  const auto files = loaded();
  EXPECT_GT(files.size(), 5);
  for (const auto* const file : files) {
    EXPECT_TRUE(file->isReady()) << file->errorString().toStdString();
  }
  EXPECT_THAT(log.lines(), testing::IsEmpty());
  service_->answers["/campaigns/c-1"] = {200, campaignReply(richAttendancePage())};
  showCampaign();
  EXPECT_TRUE(waitForNamed(QStringLiteral("출석체크 하기")));
}

TEST_F(WarmUpTest, ItHappensOnceForEachEngine) {
  ASSERT_TRUE(waitFor([this] { return isDone().toBool(); }));
  const auto files = loaded();
  QQmlComponent component(engine_.get());
  component.setData("import QtQuick\nimport Orrelo\nWindow { visible: true; OrreloHost {} }", QUrl());
  const std::unique_ptr<QObject> second(component.create());
  ASSERT_TRUE(QTest::qWaitForWindowExposed(qobject_cast<QQuickWindow*>(second.get())));
  EXPECT_EQ(loaded(), files);
  open({390, 844});
  EXPECT_TRUE(waitFor([this] { return isDone().toBool(); }));
}

TEST_F(WarmUpTest, AnEngineMayEndMeanwhile) {
  engine_.reset();  // before the first step
  open({390, 844});
  ASSERT_TRUE(waitFor([this] { return !loaded().isEmpty(); }));
  EXPECT_FALSE(isDone().toBool());
  engine_.reset();  // while a file is loaded
  open({390, 844});
  ASSERT_TRUE(waitFor([this] { return loaded().size() == 11; }));
  engine_.reset();  // while fonts are loaded
  open({390, 844});
  EXPECT_TRUE(waitFor([this] { return isDone().toBool(); }));
}

TEST_F(WarmUpTest, SwitchedOffItDoesNotBegin) {
  EXPECT_TRUE(isDone().isValid());
  quick::setWarmUpEnabled(false);
  open({390, 844});
  EXPECT_FALSE(isDone().isValid());
  EXPECT_THAT(loaded(), testing::IsEmpty());
}

/// Gives the turns of the event loop itself.
class IdleWorkTest : public testing::Test {
 protected:
  void addSteps(int count) {
    for (int i = 0; i < count; ++i) work_.add([this] { ++done_; });
  }
  void send(QEvent::Type type) {
    QEvent event(type);
    QCoreApplication::sendEvent(&window_, &event);
  }

  QWindow window_;
  quick::IdleWork work_;
  int done_ = 0;
};

TEST_F(IdleWorkTest, ATurnRunsOneStepOnceTheHostHasRested) {
  addSteps(2);
  work_.turn();
  EXPECT_EQ(done_, 0) << "it has not rested yet";
  work_.turn();
  EXPECT_EQ(done_, 1);
  work_.turn();
  EXPECT_EQ(done_, 2);
  work_.turn();
  addSteps(1);
  work_.turn();
  EXPECT_EQ(done_, 3);
}

TEST_F(IdleWorkTest, AStepMayAddOthers) {
  work_.add([this] { addSteps(1); });
  for (int i = 0; i < 3; ++i) work_.turn();
  EXPECT_EQ(done_, 1);
}

TEST_F(IdleWorkTest, NoStepRunsWhileFramesAreDrawnOrInputArrives) {
  addSteps(1);
  work_.turn();
  for (const auto type : {QEvent::UpdateRequest, QEvent::Expose, QEvent::MouseMove, QEvent::TouchUpdate,
                          QEvent::KeyPress, QEvent::Wheel}) {
    send(type);
    work_.turn();
    EXPECT_EQ(done_, 0) << type;
  }
  send(QEvent::ApplicationStateChange);
  work_.turn();
  EXPECT_EQ(done_, 1) << "other events do not delay it";
}

}  // namespace
}  // namespace orrelo::test
