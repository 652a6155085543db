#include <gtest/gtest.h>

#include <atomic>
#include <functional>
#include <thread>
#include <vector>

#include <PlotColorTable/PlotCT.h>
#include <PlotColorTable/SymbolColorCode.h>

#include "PlotColorTable.h"
#include "platform/CocoaLumberjack/LogFixture.h"

namespace vexel {
namespace {

/// Runs `work` on many threads that begin together.
void onManyThreads(const std::function<void(int thread)>& work) {
  constexpr int kThreads = 16;
  std::atomic<int> waiting = kThreads;
  std::vector<std::thread> threads;
  for (int i = 0; i < kThreads; ++i)
    threads.emplace_back([&, i] {
      --waiting;
      while (waiting > 0) std::this_thread::yield();
      work(i);
    });
  for (std::thread& thread : threads) thread.join();
}

class CatalogueThreads : public LogFixture {};

// Each test is a process of its own under CTest, so that here the families are not made yet.
TEST_F(CatalogueThreads, MayAllBeTheFirstToAskForATable) {
  DDLog::setDynamicLevel(DDLogLevel::all);
  const auto recorder = addRecorder();
  const std::vector<PlotCT> tables = PlotCT::getTables();
  std::vector<std::vector<std::optional<NSColor>>> colors(16);
  onManyThreads([&](int thread) {
    // Every family is somebody's first.
    for (std::size_t i = 0; i < tables.size(); ++i)
      colors[static_cast<std::size_t>(thread)].push_back(
          tables[(i + 5 * static_cast<std::size_t>(thread)) % tables.size()].getColor(128));
  });
  EXPECT_EQ(recorder->texts().size(), 16 * tables.size());
  for (std::size_t thread = 0; thread < colors.size(); ++thread)
    for (std::size_t i = 0; i < tables.size(); ++i)
      EXPECT_EQ(colors[thread][i], tables[(i + 5 * thread) % tables.size()].getColor(128));
}

TEST_F(CatalogueThreads, MayAllBeTheFirstToFallBackToTheDefaultTable) {
  onManyThreads([](int) { EXPECT_EQ(PlotColorTable(13, "none").colors().size(), 256u); });
}

TEST_F(CatalogueThreads, MayAllBeTheFirstToMapValues) {
  onManyThreads([](int) {
    const std::vector<double> values{1, 10, 100};
    const auto bar = SymbolColorCode(SymbolColorCode::grainMass).getColors(values, std::nullopt);
    ASSERT_TRUE(bar);
    EXPECT_EQ(bar->colorTable, PlotCT::brewerSpectral);
    EXPECT_EQ(bar->colors[2], PlotCT(PlotCT::brewerSpectral).getCPTColor(255));
  });
}

TEST_F(CatalogueThreads, MayAllBeTheFirstToNameTheNotification) {
  onManyThreads(
      [](int) { EXPECT_EQ(PlotCT::colourTableDidChange(), "PlotCT.colourTableDidChange"); });
}

}  // namespace
}  // namespace vexel
