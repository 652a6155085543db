#include "window/OutputJob.h"

#include <CoreGraphics/CGNullContext.h>
#include <gtest/gtest.h>

#include <QTest>
#include <future>
#include <new>
#include <stdexcept>

namespace explorer {
namespace {

using vexel::NSView;

class OutputJobTest : public testing::Test {
 protected:
  using Make = std::function<OutputJob::Rest(NSView&)>;

  static std::shared_ptr<const Exploration> sample() {
    return std::make_shared<const Exploration>(std::nullopt, std::nullopt,
                                               [](std::uint64_t) { return true; });
  }
  ExplorerView::Shown shown() const {
    return {{600, 400},
            vexel::PlotTheme::white,
            std::nullopt,
            exploration,
            exploration->choice(std::nullopt, std::nullopt, {}),
            TimeNavigation(exploration->span()),
            {}};
  }
  std::unique_ptr<OutputJob> start(Make make) {
    return std::make_unique<OutputJob>(
        OutputJob::Task{shown(), std::move(make)},
        [this](const OutputJob::Result& result) { results.push_back(result); });
  }
  bool finish() {
    return QTest::qWaitFor([&] { return !results.empty(); });
  }
  static void draw(NSView& view) {
    vexel::CGNullContext context;
    view.display(context);
  }

  std::shared_ptr<const Exploration> exploration = sample();
  std::vector<OutputJob::Result> results;
};

TEST_F(OutputJobTest, MakesItInAnotherThreadAndTheRestInThisOne) {
  std::thread::id maker;
  vexel::CGSize size;
  int done = 0;
  const auto job = start([&](NSView& view) {
    maker = std::this_thread::get_id();
    size = view.bounds().size;
    draw(view);
    return [&] { ++done; };
  });
  EXPECT_TRUE(results.empty());
  ASSERT_TRUE(finish());
  EXPECT_NE(maker, std::this_thread::get_id());
  EXPECT_EQ(size, (vexel::CGSize{600, 400}));
  EXPECT_EQ(results[0].complaint, "");
  ASSERT_TRUE(results[0].rest);
  results[0].rest();
  EXPECT_EQ(done, 1);
}

TEST_F(OutputJobTest, ComplainsAboutWhatIsThrown) {
  for (const auto& [make, complaint] :
       {std::pair{Make([](NSView&) -> OutputJob::Rest { throw std::runtime_error("no paper"); }),
                  "no paper"},
        std::pair{Make([](NSView&) -> OutputJob::Rest { throw std::bad_alloc(); }),
                  "There is not enough memory."}}) {
    results.clear();
    const auto job = start(make);
    ASSERT_TRUE(finish());
    EXPECT_FALSE(results[0].rest);
    EXPECT_EQ(results[0].complaint, complaint);
  }
}

TEST_F(OutputJobTest, EndsWithTheNextPartThatIsDrawnWhenItIsCancelled) {
  std::promise<void> begun, goOn;
  bool wasDrawn = false;
  const auto job = start([&](NSView& view) {
    draw(view);
    begun.set_value();
    goOn.get_future().wait();
    draw(view);
    wasDrawn = true;
    return [] {};
  });
  begun.get_future().wait();
  job->cancel();
  goOn.set_value();
  ASSERT_TRUE(finish());
  EXPECT_FALSE(wasDrawn);
  EXPECT_FALSE(results[0].rest);
  EXPECT_EQ(results[0].complaint, "");
}

TEST_F(OutputJobTest, IsSilentOnceItIsDestroyed) {
  start([](NSView& view) {
    draw(view);
    return [] {};
  });
  QTest::qWait(20);
  EXPECT_TRUE(results.empty());
}

TEST_F(OutputJobTest, MayBeDestroyedByItsOwnResult) {
  bool isDone = false;
  std::unique_ptr<OutputJob> job;
  job = std::make_unique<OutputJob>(OutputJob::Task{shown(), [](NSView&) { return [] {}; }},
                                    [&](const OutputJob::Result& result) {
                                      job.reset();
                                      isDone = result.complaint.empty();
                                    });
  EXPECT_TRUE(QTest::qWaitFor([&] { return isDone; }));
}

TEST_F(OutputJobTest, WorksWithoutATable) {
  exploration = nullptr;
  bool isMade = false;
  const auto make = [&](NSView& view) {
    draw(view);
    isMade = true;
    return [] {};
  };
  const OutputJob job(
      {{{600, 400}, vexel::PlotTheme::black, {}, nullptr, {}, TimeNavigation({0, 1}), {}}, make},
      [this](const OutputJob::Result& result) { results.push_back(result); });
  ASSERT_TRUE(finish());
  EXPECT_TRUE(isMade);
}

}  // namespace
}  // namespace explorer
