#include <CoreGraphics/CGBitmapContext.h>
#include <CoreGraphics/CGDocumentContext.h>
#include <CoreGraphics/CGRecordingContext.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "PlotColorTable/TestColorbarPlot.h"

namespace vexel {
namespace {

// The plot area of the bar is 30 points wide and 250 points high.
constexpr double kWidth = 100, kHeight = 320;
constexpr double kAreaLeft = 50, kAreaRight = 80, kAreaBottom = 50, kAreaTop = 300;

/// A host that shows nothing but the bar.
class ColorbarPictures : public testing::Test {
 protected:
  void make(const ColorBarDefinition& definition, PlotTheme theme = PlotTheme::white) {
    plot.initPlot(host, theme);
    plot.setViews();
    plot.formatColorBarPlotViews();
    plot.createColorbar(definition);
  }

  std::unique_ptr<CGBitmapContext> bitmap(double scale) {
    auto context = CGBitmapContext::create({kWidth, kHeight}, scale);
    host->display(*context);
    return context;
  }

  std::string document(CGDocumentContext::Format format) {
    const auto context = CGDocumentContext::create(format, {kWidth, kHeight});
    host->display(*context);
    return context->finish();
  }

  std::string recording() {
    CGRecordingContext context;
    host->display(context);
    return context.text();
  }

  std::shared_ptr<NSView> host = std::make_shared<NSView>(CGRect::make(0, 0, kWidth, kHeight));
  TestColorbarPlot plot;
};

const ColorBarDefinition kBars[] = {logarithmicBar(), linearBar()};
const PlotTheme kThemes[] = {PlotTheme::black, PlotTheme::white, PlotTheme::print};

std::size_t count(const std::string& text, const std::string& part) {
  std::size_t found = 0;
  for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + 1))
    ++found;
  return found;
}

/// The pixels of a column of the bar, from its top to its bottom, without the axes at its ends.
std::vector<std::uint32_t> columnOf(CGBitmapContext& context, double x) {
  const double scale = context.backingScale();
  const auto pixels = context.pixels();
  std::vector<std::uint32_t> column;
  for (int row = static_cast<int>((kHeight - kAreaTop + 1) * scale);
       row < static_cast<int>((kHeight - kAreaBottom - 1) * scale); ++row)
    column.push_back(pixels[static_cast<std::size_t>(row * context.pixelWidth()) +
                            static_cast<std::size_t>(x * scale)]);
  return column;
}

TEST_F(ColorbarPictures, ShowTheTableInSharpSteps) {
  for (const PlotTheme theme : kThemes)
    for (const ColorBarDefinition& bar : kBars)
      for (const double scale : {1.0, 1.5, 2.0, 3.0}) {
        make(bar, theme);
        const auto context = bitmap(scale);
        const auto strip = bar.colorTable.image()->cgImage();
        // No pixel is a mixture, and none is out of order.
        std::size_t row = 0;
        for (const std::uint32_t pixel : columnOf(*context, kAreaRight - 8)) {
          while (row < strip->height() && strip->premultipliedARGB(0, row) != pixel) ++row;
          ASSERT_LT(row, strip->height()) << "scale " << scale;
        }
      }
}

TEST_F(ColorbarPictures, ShowTheTableAlikeAcrossTheBar) {
  make(logarithmicBar());
  for (const double scale : {1.0, 1.7, 2.0}) {
    const auto context = bitmap(scale);
    const auto column = columnOf(*context, kAreaRight - 8);
    for (double x = kAreaLeft + 14; x < kAreaRight - 1; x += 0.5)
      ASSERT_EQ(columnOf(*context, x), column) << "scale " << scale << " x " << x;
  }
}

TEST_F(ColorbarPictures, HaveAFrameWhoseCornersAreClosed) {
  for (const ColorBarDefinition& bar : kBars)
    for (const double scale : {1.0, 1.5, 2.0}) {
      make(bar, PlotTheme::black);
      const auto context = bitmap(scale);
      const auto pixels = context->pixels();
      const int right = static_cast<int>(std::lround((kAreaRight + 2) * scale));
      // Where the last white pixel of a row is: upper and lower axis end where the right one is.
      const auto endOfRow = [&](int row) {
        int x = right;
        while (x > 0 &&
               pixels[static_cast<std::size_t>(row * context->pixelWidth() + x)] != 0xffffffffu)
          --x;
        return x;
      };
      const int middle = static_cast<int>((kHeight - (kAreaTop + kAreaBottom) / 2) * scale);
      const int upper = static_cast<int>((kHeight - kAreaTop) * scale);
      int widest = 0;
      for (int row = upper - 3; row <= upper + 3; ++row) widest = std::max(widest, endOfRow(row));
      EXPECT_EQ(widest, endOfRow(middle)) << "scale " << scale;
    }
}

TEST_F(ColorbarPictures, BeginWithTheBlackRowOnTop) {
  make(logarithmicBar(), PlotTheme::black);
  const auto context = bitmap(8);
  // A row of the strip is nearly a point high; the axis, white, covers half of it.
  const auto pixels = context->pixels();
  const auto at = [&](double yBelowTop) {
    return pixels[static_cast<std::size_t>((kHeight - kAreaTop + yBelowTop) * 8) *
                      static_cast<std::size_t>(context->pixelWidth()) +
                  static_cast<std::size_t>((kAreaRight - 8) * 8)];
  };
  EXPECT_EQ(at(0.75), 0xff000000u);
  const NSColor last = *PlotCT(PlotCT::brewerSpectral).getColor(255);
  EXPECT_EQ(at(1.25) >> 16 & 255, std::lround(last.redComponent() * 255));
}

TEST_F(ColorbarPictures, EndWithTheSecondColourOfTheTable) {
  make(logarithmicBar(), PlotTheme::black);
  const auto context = bitmap(8);
  const auto pixels = context->pixels();
  const auto pixel = pixels[static_cast<std::size_t>((kHeight - kAreaBottom - 0.75) * 8) *
                                static_cast<std::size_t>(context->pixelWidth()) +
                            static_cast<std::size_t>((kAreaRight - 8) * 8)];
  const auto strip = PlotCT(PlotCT::brewerSpectral).image()->cgImage();
  EXPECT_EQ(pixel, strip->premultipliedARGB(0, 255));
}

TEST_F(ColorbarPictures, DrawTheBarAsOneImage) {
  for (const ColorBarDefinition& bar : kBars) {
    make(bar);
    EXPECT_EQ(count(recording(), "image "), 1u);
    EXPECT_EQ(count(document(CGDocumentContext::Format::svg), "<image "), 1u);
    EXPECT_EQ(count(document(CGDocumentContext::Format::pdf), "/Subtype /Image"), 1u);
  }
}

TEST_F(ColorbarPictures, StretchTheImageOverTheWholePlotArea) {
  make(logarithmicBar());
  EXPECT_THAT(recording(), testing::HasSubstr("image 1 x 256 over 0 0 30 250"));
}

}  // namespace
}  // namespace vexel
