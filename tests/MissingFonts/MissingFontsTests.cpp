#include <CocoaLumberjack/DDLog.h>
#include <CoreGraphics/CGBitmapContext.h>
#include <CoreGraphics/CGDocumentContext.h>
#include <Vexel/FigureExport.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <malloc.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <thread>
#include <vector>

#include "Vexel/ExampleFigure.h"

namespace vexel {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

/// Keeps the errors that are logged.
class ErrorLog : public DDLogger {
 public:
  void log(const DDLogMessage& message) override {
    if (message.flag == DDLogFlag::error) errors.push_back(message.message);
  }
  std::vector<std::string> errors;
};

/// Has an effect before fonts are looked for, which is once in a process.
void takeAwayFonts() {
  const fs::path folder = fs::path(testing::TempDir()) / "vexel-no-fonts";
  fs::create_directories(folder / "empty");
  std::ofstream(folder / "fonts.conf")
      << "<?xml version=\"1.0\"?><!DOCTYPE fontconfig SYSTEM \"urn:fontconfig:fonts.dtd\">"
      << "<fontconfig><dir>" << (folder / "empty").string() << "</dir><cachedir>"
      << (folder / "cache").string() << "</cachedir></fontconfig>";
  ::setenv("FONTCONFIG_FILE", (folder / "fonts.conf").c_str(), 1);
}

// Comes first: fonts that had been found would stay.
TEST(Fonts, AreNotLookedForBeforeTextIsDrawn) {
  ExampleFigure figure;
  for (const auto& graph : figure.plot.graphs())
    for (const auto& axis : graph->axisSet()->axes())
      axis->setLabelingPolicy(CPTAxisLabelingPolicy::none);
  for (const char* const name : {"figure.png", "figure.pdf", "figure.svg"})
    EXPECT_FALSE(figureData(*figure.view, name, 1).empty());
  takeAwayFonts();
  const auto log = std::make_shared<ErrorLog>();
  DDLog::sharedInstance().addLogger(log);
  sharedTextMeasure().measure({.runs = {{.text = "Impact charge [fC]"}}});
  DDLog::sharedInstance().removeLogger(log);
  EXPECT_THAT(log->errors, ElementsAre(HasSubstr("fontconfig knows no fonts")));
}

/// A system that has no fonts.
class MissingFonts : public testing::Test {
 protected:
  static void SetUpTestSuite() {
    takeAwayFonts();
    // The text library leaves some of its memory as it was.
    ::mallopt(M_PERTURB, 0x41);
  }
  MissingFonts() { DDLog::sharedInstance().addLogger(log); }
  ~MissingFonts() override { DDLog::sharedInstance().removeLogger(log); }

  /// Runs on a thread of its own, which has not drawn any text yet.
  template <class Work>
  static void onNewThread(const Work& work) {
    std::thread(work).join();
  }

  const CGText text{.runs = {{.text = "Impact charge [fC]"}}};
  std::shared_ptr<ErrorLog> log = std::make_shared<ErrorLog>();
};

TEST_F(MissingFonts, LeaveBoxesInPlaceOfCharacters) {
  const auto context = CGBitmapContext::create({200, 40}, 1);
  const CGSize size = context->measure(text);
  EXPECT_GT(size.width, 0);
  EXPECT_GT(size.height, 0);
  context->drawText(text, {5, 5});
  const auto pixels = context->pixels();
  EXPECT_GT(std::count_if(pixels.begin(), pixels.end(), [](auto pixel) { return pixel != 0; }), 50);
}

TEST_F(MissingFonts, LeaveDocumentsWhole) {
  for (const auto format : {CGDocumentContext::Format::pdf, CGDocumentContext::Format::svg}) {
    const auto context = CGDocumentContext::create(format, {200, 40});
    context->drawText(text, {5, 5});
    EXPECT_FALSE(context->finish().empty());
  }
  const auto svg = CGDocumentContext::create(CGDocumentContext::Format::svg, {200, 40});
  svg->drawText(text, {5, 5});
  EXPECT_THAT(svg->finish(), HasSubstr("Impact charge [fC]"));
}

TEST_F(MissingFonts, AreReportedOnceByEachThreadThatDrawsText) {
  for (int thread = 0; thread < 2; ++thread) {
    log->errors.clear();
    onNewThread([&] {
      EXPECT_EQ(sharedTextMeasure().measure({}), CGSize{});
      EXPECT_THAT(log->errors, IsEmpty());
      for (int i = 0; i < 3; ++i) {
        sharedTextMeasure().measure(text);
        sharedTextMeasure().measure({.runs = {{.text = std::to_string(i)}}});
      }
      EXPECT_THAT(log->errors, ElementsAre(HasSubstr("fontconfig knows no fonts")));
    });
  }
}

}  // namespace
}  // namespace vexel
