#include <CoreGraphics/CGBitmapContext.h>
#include <CoreGraphics/CGDocumentContext.h>
#include <gtest/gtest.h>

#include <array>
#include <atomic>
#include <string>
#include <thread>
#include <vector>

#include "Vexel/ExampleFigure.h"

namespace vexel {
namespace {

constexpr int kFigures = 5;

/// A figure with all that texts, symbols and dashes share, as PNG, SVG and PDF.
std::vector<std::string> files(double xLength) {
  ExampleFigure figure;
  const auto graph = figure.plot.graphs()[0];
  dynamic_cast<CPTXYPlotSpace&>(*graph->defaultPlotSpace()).setXRange({0, xLength});
  graph->setTitle("Impacts");
  std::vector<std::string> result;
  const auto bitmap = CGBitmapContext::create(figure.view->bounds().size, 1.5);
  figure.view->display(*bitmap);
  result.push_back(bitmap->pngData());
  using Format = CGDocumentContext::Format;
  for (const Format format : {Format::svg, Format::pdf}) {
    const auto document = CGDocumentContext::create(format, figure.view->bounds().size);
    figure.view->display(*document);
    result.push_back(document->finish());
  }
  return result;
}

std::vector<std::vector<std::string>> figures() {
  std::vector<std::vector<std::string>> result;
  for (int i = 1; i <= kFigures; ++i) result.push_back(files(i));
  return result;
}

// Under CTest each test is a process of its own, so that the threads are the first to draw.
TEST(FigureThreads, EachDrawsItsOwnFiguresAtTheSameTime) {
  constexpr std::size_t kThreads = 2;
  std::array<std::vector<std::vector<std::string>>, kThreads> drawn;
  std::atomic<std::size_t> waiting = kThreads;
  std::vector<std::thread> threads;
  for (auto& mine : drawn)
    threads.emplace_back([&] {
      --waiting;
      while (waiting > 0) std::this_thread::yield();
      mine = figures();
    });
  for (std::thread& thread : threads) thread.join();
  const auto expected = figures();
  EXPECT_NE(expected[0], expected[1]);
  for (const auto& mine : drawn) EXPECT_TRUE(mine == expected);
}

}  // namespace
}  // namespace vexel
