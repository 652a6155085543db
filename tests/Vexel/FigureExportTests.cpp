#include <AppKit/NSWindow.h>
#include <CoreGraphics/CGBitmapContext.h>
#include <CoreGraphics/CGDocumentContext.h>
#include <CoreGraphics/CGNullContext.h>
#include <Vexel/FigureExport.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <limits>
#include <stdexcept>
#include <thread>
#include <utility>

#include "Vexel/ExampleFigure.h"
#include "Vexel/LargestBlock.h"
#include "Vexel/OutputFolder.h"
#include "Vexel/WatchedContext.h"

namespace vexel {
namespace {

namespace fs = std::filesystem;
using testing::AllOf;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

/// Width and height in the header of a PNG file.
std::pair<unsigned, unsigned> pngSize(const std::string& bytes) {
  if (bytes.size() < 24) return {};
  const auto number = [&](std::size_t at) {
    unsigned result = 0;
    for (std::size_t i = at; i < at + 4; ++i)
      result = result * 256 + static_cast<unsigned char>(bytes[i]);
    return result;
  };
  return {number(16), number(20)};
}

class FigureExport : public testing::Test {
 protected:
  std::string exported(NSView& view, const std::string& name) {
    exportFigure(view, folder / name);
    return folder.read(name);
  }

  /// The text of the failure, or nothing.
  std::string failure(const fs::path& file, CGFloat scale = 1) {
    try {
      exportFigure(*figure.view, file, scale);
    } catch (const FigureExportError& error) {
      return error.what();
    }
    return "";
  }

  OutputFolder folder;
  ExampleFigure figure;
};

TEST_F(FigureExport, WritesWhatTheExtensionSays) {
  EXPECT_THAT(exported(*figure.view, "figure.png"), StartsWith("\x89PNG\r\n\x1a\n"));
  EXPECT_THAT(exported(*figure.view, "figure.pdf"), StartsWith("%PDF-"));
  EXPECT_THAT(exported(*figure.view, "figure.svg"), AllOf(StartsWith("<?xml"), HasSubstr("<svg")));
  EXPECT_THAT(exported(*figure.view, "figure.pdf.png"), StartsWith("\x89PNG"));
  EXPECT_THAT(folder.names(),
              ElementsAre("figure.pdf", "figure.pdf.png", "figure.png", "figure.svg"));
}

TEST_F(FigureExport, GivesWhatAFileOfThatNameWouldHold) {
  for (const char* name : {"figure.png", "figure.pdf", "figure.svg"}) {
    exportFigure(*figure.view, folder / name, 2);
    EXPECT_EQ(figureData(*figure.view, name, 2), folder.read(name));
  }
  EXPECT_THROW(figureData(*figure.view, "figure.jpg", 1), FigureExportError);
  EXPECT_THROW(figureData(*figure.view, "figure.png", -1), FigureExportError);
}

TEST_F(FigureExport, WritesOnePixelPerPointUnlessAskedForMore) {
  EXPECT_EQ(pngSize(exported(*figure.view, "figure.png")), std::pair(300u, 200u));
  exportFigure(*figure.view, folder / "figure.png", 1);
  EXPECT_EQ(pngSize(folder.read("figure.png")), std::pair(300u, 200u));
}

TEST_F(FigureExport, WritesExactlyTwiceThePixelsAtTwiceTheScale) {
  for (const CGSize size : {CGSize{1, 1}, CGSize{333, 77}, CGSize{1600, 1000}}) {
    figure.view->setFrameSize(size);
    exportFigure(*figure.view, folder / "one.png", 1);
    exportFigure(*figure.view, folder / "two.png", 2);
    const auto [width, height] = pngSize(folder.read("one.png"));
    EXPECT_EQ(width, size.width);
    EXPECT_EQ(height, size.height);
    EXPECT_EQ(pngSize(folder.read("two.png")), std::pair(2 * width, 2 * height));
  }
}

TEST_F(FigureExport, WritesTheSameDocumentAtAnyScale) {
  for (const char* name : {"figure.pdf", "figure.svg"}) {
    const std::string atOne = exported(*figure.view, name);
    exportFigure(*figure.view, folder / name, 2);
    EXPECT_EQ(folder.read(name), atOne);
    exportFigure(*figure.view, folder / name, std::numeric_limits<double>::quiet_NaN());
    EXPECT_EQ(folder.read(name), atOne);
  }
}

TEST_F(FigureExport, WritesEqualBytesEachTimeAndForEqualFigures) {
  ExampleFigure twin;
  for (const std::string extension : {".png", ".pdf", ".svg"}) {
    const std::string first = exported(*figure.view, "first" + extension);
    EXPECT_FALSE(first.empty());
    EXPECT_EQ(exported(*figure.view, "second" + extension), first);
    EXPECT_EQ(exported(*figure.view, "third" + extension), first);
    EXPECT_EQ(exported(*twin.view, "twin" + extension), first);
  }
}

TEST_F(FigureExport, WritesEqualBytesEachTimeWhereBandsMeetBetweenPixels) {
  for (const int count : {3, 7})
    for (const CGFloat scale : {1.0, 2.0, 1.37}) {
      figure.plot.setViews(count, 10, 20);
      for (const auto& band : figure.plot.hostingViews())
        figure.plot.addPlot(cptLine(figure.plot.format(band, {0, 0, 0, 0}, {5, 5, 5, 5})));
      exportFigure(*figure.view, folder / "first.png", scale);
      exportFigure(*figure.view, folder / "second.png", scale);
      exportFigure(*figure.view, folder / "third.png", scale);
      EXPECT_TRUE(folder.read("first.png") == folder.read("second.png")) << count << " " << scale;
      EXPECT_TRUE(folder.read("first.png") == folder.read("third.png")) << count << " " << scale;
    }
}

TEST_F(FigureExport, WritesAnotherFigureWithOtherBytes) {
  ExampleFigure other;
  other.plot.points[0].y += 0.01;
  for (const std::string extension : {".png", ".pdf", ".svg"})
    EXPECT_NE(exported(*other.view, "other" + extension),
              exported(*figure.view, "figure" + extension));
}

TEST_F(FigureExport, DrawsTheSameGeometryIntoEveryFormat) {
  CGRecordingContext recording;
  figure.view->display(recording);
  EXPECT_THAT(recording.text(),
              AllOf(HasSubstr("#ff0000"), HasSubstr("dash 4 2"), HasSubstr("symbols"),
                    HasSubstr("text"), HasSubstr("#cccccc")));

  for (const CGFloat scale : {1.0, 2.0, 1.37}) {
    const auto bitmap = CGBitmapContext::create({300, 200}, scale);
    WatchedContext watched(*bitmap);
    figure.view->display(watched);
    EXPECT_EQ(watched.text(), recording.text());
    exportFigure(*figure.view, folder / "figure.png", scale);
    EXPECT_TRUE(bitmap->pngData() == folder.read("figure.png")) << scale;
  }
  for (const auto& [format, name] : {std::pair(CGDocumentContext::Format::pdf, "figure.pdf"),
                                     std::pair(CGDocumentContext::Format::svg, "figure.svg")}) {
    const auto document = CGDocumentContext::create(format, {300, 200});
    WatchedContext watched(*document);
    figure.view->display(watched);
    EXPECT_EQ(watched.text(), recording.text());
    EXPECT_EQ(document->finish(), exported(*figure.view, name));
  }
}

TEST_F(FigureExport, LaysOutAndDrawsTheFigureAtItsPresentSize) {
  figure.view->setFrameSize({600, 300});
  EXPECT_EQ(pngSize(exported(*figure.view, "figure.png")), std::pair(600u, 300u));
  EXPECT_EQ(figure.plot.hostingViews()[0]->frame().size.width, 600);
  EXPECT_THAT(exported(*figure.view, "figure.svg"), HasSubstr("width=\"600"));
}

TEST_F(FigureExport, WritesAViewThatIsPartOfAnother) {
  const auto band = figure.plot.hostingViews()[1];
  figure.view->layoutSubtreeIfNeeded();
  ExampleFigure twin;
  twin.view->layoutSubtreeIfNeeded();
  const auto alone = twin.plot.hostingViews()[1];
  alone->removeFromSuperview();
  EXPECT_EQ(exported(*band, "part.svg"), exported(*alone, "alone.svg"));
}

TEST_F(FigureExport, LeavesToTheScreenWhatItHadToDraw) {
  const auto window = std::make_shared<NSWindow>(CGSize{300, 200});
  window->setContentView(figure.view);
  CGNullContext screen;
  for (const char* name : {"figure.png", "figure.pdf", "figure.svg"}) {
    window->display(screen);
    ASSERT_FALSE(window->needsDisplay());
    exported(*figure.view, name);
    EXPECT_FALSE(window->needsDisplay());

    figure.plot.graphs()[0]->allPlots()[0]->setDataNeedsReloading();
    exported(*figure.view, name);
    EXPECT_TRUE(window->needsDisplay());
    EXPECT_EQ(window->dirtyRect(), CGRect::make(0, 0, 300, 200));
  }
}

TEST_F(FigureExport, ShowsNewDataInTheWindowAfterItShowedThemInAFile) {
  const auto window = std::make_shared<NSWindow>(CGSize{300, 200});
  window->setContentView(figure.view);
  const auto show = [&] {
    const auto screen = CGBitmapContext::create({300, 200}, 1);
    window->display(*screen);
    return screen->pngData();
  };
  // Twice, so that the picture is kept.
  show();
  const std::string before = show();
  figure.plot.points[0].y += 0.1;
  figure.plot.graphs()[0]->reloadData();
  const std::string written = exported(*figure.view, "figure.png");
  EXPECT_NE(written, before);
  EXPECT_EQ(show(), written);
  EXPECT_EQ(show(), written);
}

TEST_F(FigureExport, RefusesExtensionsThatItDoesNotKnow) {
  for (const char* name : {"figure", "figure.", "figure.jpg", "figure.PNG", "figure.png ", ".png",
                           "png", "figure.png/"})
    EXPECT_THAT(failure(folder / name),
                AllOf(StartsWith((folder / name).string() + ": "), HasSubstr(".png, .pdf or .svg")))
        << name;
  EXPECT_THAT(failure(""), HasSubstr(".png, .pdf or .svg"));
  EXPECT_THAT(folder.names(), IsEmpty());
}

TEST_F(FigureExport, LeavesAFileOfAnUnknownExtensionAlone) {
  folder.write("figure.txt", "old");
  EXPECT_NE(failure(folder / "figure.txt"), "");
  EXPECT_EQ(folder.read("figure.txt"), "old");
}

TEST_F(FigureExport, LeavesTheFormerFileWholeWhenThereIsNoSurface) {
  folder.write("figure.png", "old");
  folder.write("figure.pdf", "old");
  for (const CGFloat scale : {std::numeric_limits<double>::quiet_NaN(), 0.0, -1.0, 1e9})
    EXPECT_THAT(failure(folder / "figure.png", scale),
                StartsWith((folder / "figure.png").string() + ": "));
  figure.view->setFrameSize({0, 200});
  EXPECT_THAT(failure(folder / "figure.png"), StartsWith((folder / "figure.png").string() + ": "));
  EXPECT_THAT(failure(folder / "figure.pdf"), StartsWith((folder / "figure.pdf").string() + ": "));
  EXPECT_EQ(folder.read("figure.png"), "old");
  EXPECT_EQ(folder.read("figure.pdf"), "old");
  EXPECT_THAT(folder.names(), ElementsAre("figure.pdf", "figure.png"));
}

TEST_F(FigureExport, NamesAFileThatCannotBeWritten) {
  fs::create_directory(folder / "folder.png");
  fs::create_symlink("/dev/full", folder / "full.svg");
  for (const char* name : {"folder.png", "missing/figure.pdf", "full.svg"}) {
    const std::string path = folder / name;
    EXPECT_THAT(failure(path), StartsWith(path + ": "));
    EXPECT_GT(failure(path).size(), path.size() + 2);
  }
  EXPECT_THAT(folder.names(), ElementsAre("folder.png", "full.svg"));
}

TEST_F(FigureExport, LeavesTheFormerFileAndTheFigureWholeWhereverMemoryEnds) {
  for (const std::string name : {"figure.png", "figure.pdf", "figure.svg"}) {
    const fs::path file = folder / name;
    const std::string wanted = exported(*figure.view, name);
    int failures = 0;
    for (std::size_t requests = 0;; requests += 1 + requests / 50) {
      SCOPED_TRACE(testing::Message() << name << " after " << requests);
      folder.write(name, "old");
      for (const auto& graph : figure.plot.graphs()) {
        graph->reloadData();
        graph->setNeedsDisplay();
      }
      requestsBeforeFailure() = requests;
      const std::string text = failure(file);
      const bool hasFailed = !std::exchange(requestsBeforeFailure(), std::nullopt);
      if (!hasFailed) break;
      // What can be done without, like a picture that is kept, may be.
      if (!text.empty()) {
        ++failures;
        EXPECT_THAT(text, StartsWith(file.string() + ": "));
      }
      EXPECT_EQ(folder.read(name), text.empty() ? wanted : "old");
      EXPECT_THAT(folder.names(), Contains(name));
      ASSERT_TRUE(exported(*figure.view, name) == wanted);
    }
    EXPECT_GT(failures, 100);
    EXPECT_EQ(folder.read(name), wanted);
  }
  EXPECT_THAT(folder.names(), ElementsAre("figure.pdf", "figure.png", "figure.svg"));
}

TEST_F(FigureExport, FailsCleanlyWhereMemoryEndsBeforeAnyTextWasDrawn) {
  // What is known of texts and fonts is kept by each thread.
  for (const std::string name : {"figure.png", "figure.pdf", "figure.svg"})
    for (std::size_t requests = 0, step = 1; step != 0; requests += step) {
      step = 1 + requests / 8;
      std::thread([&] {
        ExampleFigure fresh;
        requestsBeforeFailure() = requests;
        try {
          figureData(*fresh.view, name, 1);
        } catch (const FigureExportError&) {
        }
        if (std::exchange(requestsBeforeFailure(), std::nullopt)) step = 0;
        EXPECT_TRUE(figureData(*fresh.view, name, 1) == figureData(*figure.view, name, 1))
            << name << " after " << requests;
      }).join();
    }
}

#ifndef __SANITIZE_ADDRESS__
// The sanitizer takes more addresses than any limit would leave.
TEST_F(FigureExport, LeavesTheFormerFileWholeWhenTheBitmapDoesNotFitIntoMemory) {
  folder.write("figure.png", "old");
  const auto exportWithLittleMemory = [&] {
    rlim_t pages = 0;
    std::ifstream("/proc/self/statm") >> pages;
    constexpr rlim_t kRoom = 64 << 20;
    const rlim_t bytes = pages * static_cast<rlim_t>(::sysconf(_SC_PAGESIZE)) + kRoom;
    const rlimit limit{bytes, bytes};
    ::setrlimit(RLIMIT_AS, &limit);
    const std::string text = failure(folder / "figure.png", 40);
    const bool works = failure(folder / "small.png").empty();
    std::fprintf(stderr, "%s; small: %d", text.c_str(), works);
    std::_Exit(0);
  };
  EXPECT_EXIT(exportWithLittleMemory(), testing::ExitedWithCode(0),
              "figure.png: out of memory; small: 1");
  EXPECT_EQ(folder.read("figure.png"), "old");
  EXPECT_THAT(folder.names(), ElementsAre("figure.png", "small.png"));
}
#endif

TEST_F(FigureExport, PassesOnWhatADataSourceThrowsAndCanBeRepeated) {
  struct ThrowingPlot : TestPlot {
    double number(const CPTPlot& plot, unsigned field, std::size_t record) override {
      if (throws) throw std::out_of_range("no such record");
      return TestPlot::number(plot, field, record);
    }
    bool throws = true;
  } plot;
  const auto view = std::make_shared<PlotView>(CGRect::make(0, 0, 300, 200));
  plot.initPlot(view, PlotTheme::white);
  plot.setViews(1, 10, 20);
  const auto graph = plot.format(plot.hostingViews()[0], {0, 0, 0, 0}, {50, 10, 20, 40});
  plot.addPlot(cptLine(graph));
  for (const std::string name : {"figure.png", "figure.pdf", "figure.svg"}) {
    folder.write(name, "old");
    plot.throws = true;
    graph->reloadData();
    EXPECT_THROW(exportFigure(*view, folder / name), std::out_of_range);
    EXPECT_EQ(folder.read(name), "old");
    plot.throws = false;
    const std::string repeated = exported(*view, name);
    EXPECT_NE(repeated, "old");
    EXPECT_TRUE(exported(*view, name) == repeated);
  }
  EXPECT_THAT(folder.names(), ElementsAre("figure.pdf", "figure.png", "figure.svg"));
}

TEST_F(FigureExport, RefusesAPipeThatNobodyReads) {
  ASSERT_EQ(::mkfifo((folder / "figure.svg").c_str(), 0600), 0);
  EXPECT_THAT(failure(folder / "figure.svg"), StartsWith((folder / "figure.svg").string() + ": "));
}

TEST_F(FigureExport, ReplacesTheFormerFile) {
  folder.write("figure.svg", std::string(1 << 20, 'x'));
  EXPECT_THAT(exported(*figure.view, "figure.svg"), testing::EndsWith("</svg>\n"));
  EXPECT_THAT(folder.names(), ElementsAre("figure.svg"));
}

}  // namespace
}  // namespace vexel
