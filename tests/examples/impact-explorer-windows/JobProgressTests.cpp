#include "window/JobProgress.h"

#include <gtest/gtest.h>

#include <QTest>

namespace explorer {
namespace {

using namespace std::chrono_literals;

class JobProgressTest : public testing::Test {
 protected:
  JobProgressTest() {
    progress = new JobProgress(&window);
    window.show();
  }

  QWidget window;
  JobProgress* progress;
};

TEST_F(JobProgressTest, IsHiddenWithoutAJob) {
  EXPECT_FALSE(progress->isVisible());
  progress->begin("Reading", 0ms);
  EXPECT_TRUE(progress->isVisible());
  progress->end();
  EXPECT_FALSE(progress->isVisible());
}

TEST_F(JobProgressTest, AppearsWhenAJobTakesLong) {
  progress->begin("Exporting", 20ms);
  EXPECT_FALSE(progress->isVisible());
  EXPECT_TRUE(QTest::qWaitFor([&] { return progress->isVisible(); }));
}

TEST_F(JobProgressTest, DoesNotAppearForAJobThatHasEnded) {
  progress->begin("Exporting", 20ms);
  progress->end();
  QTest::qWait(60);
  EXPECT_FALSE(progress->isVisible());
}

TEST_F(JobProgressTest, ShowsHowFarAJobIsOnceItIsTold) {
  const auto* const bar = progress->findChild<QProgressBar*>();
  progress->begin("Reading", 0ms);
  EXPECT_EQ(bar->maximum(), 0);
  progress->setProgress(0.25);
  EXPECT_EQ(4 * bar->value(), bar->maximum());
  progress->begin("Reading", 0ms);
  EXPECT_EQ(bar->maximum(), 0);
}

TEST_F(JobProgressTest, CutsLongTexts) {
  progress->begin(QString(1000, 'x'), 0ms);
  EXPECT_LT(progress->sizeHint().width(), 700);
}

TEST_F(JobProgressTest, TellsThatTheJobIsNotWanted) {
  int cancelled = 0;
  progress->onCancel = [&] { ++cancelled; };
  progress->begin("Reading", 0ms);
  progress->findChild<QToolButton*>("cancel")->click();
  EXPECT_EQ(cancelled, 1);
}

}  // namespace
}  // namespace explorer
