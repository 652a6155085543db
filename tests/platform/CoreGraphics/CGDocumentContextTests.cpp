#include <CoreGraphics/CGDocumentContext.h>

#include <gmock/gmock.h>

#include <cstdio>
#include <cstdlib>
#include <functional>
#include <string_view>

#include "Bitmaps.h"
#include "PdfFiles.h"

namespace vexel {
namespace {

using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

using Format = CGDocumentContext::Format;
using Document = std::unique_ptr<CGDocumentContext>;

constexpr Format kFormats[] = {Format::pdf, Format::svg};

Document makeDocument(Format format) {
  return CGDocumentContext::create(format, {320, 240});
}

std::shared_ptr<const CGImage> translucentImage(bool interpolates) {
  CGImageLayout layout;
  layout.width = 2;
  layout.height = 2;
  layout.bytesPerRow = 8;
  layout.alphaInfo = CGImageAlphaInfo::premultipliedFirst;
  layout.interpolates = interpolates;
  return CGImage::create(layout, {255, 9, 9, 9, 128, 8, 8, 8, 64, 7, 7, 7, 0, 0, 0, 0});
}

void drawScene(CGContext& context) {
  context.drawText({{{"Charge ", {}}, {"10", {.bold = true}, kRed}, {"-3", {}, kRed, 1}}},
                   {50.5, 185});
  context.drawImage(*columnImage({1, 2, 3}), CGRect::make(260.5, 80, 20, 100));
  context.drawImage(*translucentImage(false), CGRect::make(200, 80, 20, 100));
  context.drawImage(*translucentImage(true), CGRect::make(230, 80, 20, 100));
  {
    const CGSavedState state(context);
    context.clip(ellipsePath(40, 30, 180, 150));
    context.fill(rectPath(20, 20, 100, 100), CGColor::genericRGB(0, 0.5, 1, 0.5));
    context.rotate(0.3);
    context.drawText({{{"slanted", {.italic = true}, CGColor::genericGray(0, 0.3)}}}, {60, 60});
  }
  const std::vector<CGPoint> centers{{20.5, 20}, {40, 30}, {1e9, 5}, {kNaN, 5}};
  const CGStrokeStyle style{.width = 0.75, .dashPattern = {2.5, 1}};
  context.drawSymbols(ellipsePath(-3, -3, 6, 6), &kRed, &style, centers);
  context.stroke(linePath({-1e12, 60}, {1e12, 62}), style);
}

std::string drawn(Format format) {
  const Document document = makeDocument(format);
  drawScene(*document);
  return document->finish();
}

TEST(CGDocumentContext, RefusesSizesThatAPageCannotHave) {
  for (const Format format : kFormats)
    for (const CGSize& size : {CGSize{kNaN, 10}, CGSize{10, kNaN}, CGSize{kInfinity, 10},
                               CGSize{0, 10}, CGSize{10, 0}, CGSize{-5, 10}, CGSize{14401, 10}})
      EXPECT_THROW(CGDocumentContext::create(format, size), CGContextError);
}

TEST(CGDocumentContext, GivesEqualBytesForEqualDrawing) {
  for (const Format format : kFormats) {
    const std::string first = drawn(format);
    EXPECT_EQ(first, drawn(format));
    // Other surfaces in between.
    const Document document = makeDocument(format), pdf = makeDocument(Format::pdf),
                   svg = makeDocument(Format::svg);
    const Bitmap bitmap = whiteBitmap(320, 240);
    for (CGContext* context :
         {static_cast<CGContext*>(bitmap.get()), static_cast<CGContext*>(svg.get()),
          static_cast<CGContext*>(document.get()), static_cast<CGContext*>(pdf.get())})
      drawScene(*context);
    pdf->finish();
    EXPECT_EQ(document->finish(), first);
    EXPECT_EQ(svg->finish(), drawn(Format::svg));
  }
}

TEST(CGDocumentContext, GivesTheSameBytesInEveryProcess) {
  // The other process starts from the beginning: other addresses, other counters, a later time.
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  const auto digest = [](int earlierFiles) {
    for (int i = 0; i < earlierFiles; ++i) drawn(Format::svg);
    return "digest " + std::to_string(std::hash<std::string>()(drawn(Format::pdf))) + " " +
           std::to_string(std::hash<std::string>()(drawn(Format::svg)));
  };
  EXPECT_EXIT(
      {
        std::fputs(digest(3).c_str(), stderr);
        std::_Exit(0);  // no checks for leaks in there
      },
      testing::ExitedWithCode(0), digest(0));
}

TEST(CGDocumentContext, WritesAPdfOfOnePageWithItsSizeInPoints) {
  const std::string pdf = drawn(Format::pdf);
  EXPECT_THAT(pdf, StartsWith("%PDF-1."));
  EXPECT_THAT(pdf, HasSubstr("%%EOF"));
  EXPECT_THAT(pdf, HasSubstr("/MediaBox [ 0 0 320 240 ]"));
  EXPECT_THAT(pdf, HasSubstr("/Count 1"));
  EXPECT_THAT(pdf, Not(HasSubstr("Date")));
}

TEST(CGDocumentContext, EmbedsFontsAndTheirCharactersInAPdf) {
  // Fonts are there when text is text; the map to Unicode makes it searchable.
  const std::string pdf = drawn(Format::pdf);
  EXPECT_THAT(pdf, HasSubstr("/Type /Font\n"));
  EXPECT_THAT(pdf, HasSubstr("LiberationSans"));
  EXPECT_THAT(pdf, HasSubstr("/FontFile"));
  EXPECT_THAT(pdf, HasSubstr("/ToUnicode"));
  EXPECT_THAT(makeDocument(Format::pdf)->finish(), Not(HasSubstr("/Type /Font\n")));
}

int occurrences(const std::string& text, std::string_view part) {
  int found = 0;
  for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + 1))
    ++found;
  return found;
}

TEST(CGDocumentContext, HoldsTheShapeOfManySymbolsOnce) {
  std::vector<CGPoint> centers{{kNaN, 5}, {5, kInfinity}, {1e9, 5}, {-20, 5}};
  for (int i = 0; i < 50; ++i) centers.push_back({5.5 * i, 100});
  const Document svg = makeDocument(Format::svg);
  const CGStrokeStyle style;
  svg->drawSymbols(ellipsePath(-3, -3, 6, 6), &kRed, &style, centers);
  const std::string file = svg->finish();
  EXPECT_EQ(occurrences(file, "<use"), 50);
  EXPECT_LE(occurrences(file, "<path"), 2);
}

TEST(CGDocumentContext, RefersToSymbolsInAPdf) {
  const auto pdfOf = [](std::span<const CGPoint> centers, const CGRect& clip) {
    const Document pdf = makeDocument(Format::pdf);
    pdf->drawText({{{"below"}}}, {10, 10});
    pdf->clip(clip);
    const CGColor faint = CGColor::genericRGB(0, 0, 1, 0.5);
    const CGStrokeStyle style;
    pdf->drawSymbols(ellipsePath(-3, -3, 6, 6), &kRed, &style, centers);
    pdf->drawSymbols(ellipsePath(-3, -3, 6, 6), &faint, nullptr, centers);
    const std::string file = pdf->finish();
    expectTableOfObjects(file);
    EXPECT_THAT(file, HasSubstr("/Type /Font\n"));
    EXPECT_EQ(occurrences(file, "/Subtype /Image"), 0);
    return file;
  };
  const CGRect page = CGRect::make(0, 0, 320, 240);
  std::vector<CGPoint> centers{{kNaN, 5}, {5, kInfinity}, {1e9, 5}, {-20, 5}};
  // Nothing to be seen.
  EXPECT_EQ(occurrences(pdfOf(centers, page), "/Subtype /Form"), 0);
  for (int i = 0; i < 50; ++i) centers.push_back({5.5 * i, 100});
  EXPECT_EQ(occurrences(pdfOf(centers, CGRect::make(10, 10, 0, 0)), "/Subtype /Form"), 0);
  // What is drawn, and the two shapes that it refers to.
  const std::string file = pdfOf(centers, page);
  EXPECT_EQ(occurrences(file, "/Subtype /Form"), 3);
  EXPECT_THAT(file, HasSubstr("/ca 0.5"));
  EXPECT_THAT(file, Not(HasSubstr("stands in")));
}

TEST(CGDocumentContext, DrawsSymbolsThatAreNoShapesOneByOne) {
  const CGColor faint = CGColor::genericRGB(0, 0, 1, 0.5);
  const CGStrokeStyle outline;
  const std::vector<CGSymbolStyle> styles{{&kRed, nullptr}, {&faint, &outline}};
  const std::vector<std::uint32_t> styleOfCenter{0, 1, 0};
  const std::vector<CGPoint> centers{{40, 40}, {50, 60}, {60, 40}};
  const struct {
    const char* what;
    CGPath symbol;
    CGAffineTransform transform;
  } rows[] = {
      {"too large", ellipsePath(-700, -700, 1400, 1400), {}},
      {"flat", ellipsePath(-3, -3, 6, 6), {1, 0, 0, 0, 0, 0}},
  };
  for (const auto& [what, symbol, transform] : rows) {
    for (const Format format : {Format::pdf, Format::svg}) {
      const Document drawn = makeDocument(format), wanted = makeDocument(format);
      drawn->concatenate(transform);
      drawn->drawStyledSymbols(symbol, styles, styleOfCenter, centers);
      wanted->concatenate(transform);
      for (std::size_t i = 0; i < centers.size(); ++i) {
        const CGSymbolStyle& style = styles[styleOfCenter[i]];
        wanted->CGContext::drawSymbols(symbol, style.fillColor, style.strokeStyle,
                                       std::span(centers).subspan(i, 1));
      }
      EXPECT_EQ(drawn->finish(), wanted->finish()) << what << (format == Format::pdf ? " pdf" : "");
    }
  }
}

TEST(CGDocumentContext, CollectsDrawingOfAPdfUntilTheClipChangesOrTextComes) {
  const auto line = [](CGContext& c) { c.stroke(linePath({10, 10}, {90, 90}), {}); };
  const auto fill = [](CGContext& c) { c.fill(rectPath(20, 20, 50, 50), kRed); };
  struct {
    const char* what;
    std::function<void(CGContext&)> draw;
    int forms;
  } const cases[] = {
      {"nothing", [](CGContext&) {}, 0},
      {"transparent drawing",
       [](CGContext& c) {
         c.fill(rectPath(0, 0, 9, 9), CGColor::genericGray(0, 0));
         c.stroke(linePath({1, 1}, {2, 2}), {.width = kNaN});
         c.stroke(linePath({kNaN, 1}, {2, 2}), {});
       },
       0},
      {"drawing without an inverse",
       [&](CGContext& c) {
         c.scale(0, 1);
         line(c);
       },
       0},
      {"drawing before there is no inverse",
       [&](CGContext& c) {
         line(c);
         c.scale(0, 1);
       },
       1},
      {"states without a clip",
       [&](CGContext& c) {
         for (int i = 0; i < 5; ++i) {
           const CGSavedState state(c);
           c.translate(5, 5);
           line(c);
           fill(c);
         }
       },
       1},
      {"a clip in the middle",
       [&](CGContext& c) {
         line(c);
         {
           const CGSavedState state(c);
           c.clip(CGRect::make(20, 20, 30, 30));
           fill(c);
         }
         line(c);
       },
       3},
      {"text in the middle",
       [&](CGContext& c) {
         fill(c);
         c.drawText({{{"a"}}}, {20, 20});
         line(c);
         c.fillAligned(CGRect::make(5, 5, 10, 10), kRed);
       },
       2},
      {"a pen that is not round",
       [&](CGContext& c) {
         fill(c);
         c.scale(1, 2);
         line(c);
         fill(c);
       },
       2},
  };
  for (const auto& c : cases) {
    const Document pdf = makeDocument(Format::pdf);
    c.draw(*pdf);
    const std::string file = pdf->finish();
    EXPECT_EQ(occurrences(file, "/Subtype /Form"), c.forms) << c.what;
    expectTableOfObjects(file);
  }
}

TEST(CGDocumentContext, LeavesOutSymbolsBeyondTheClip) {
  const Document svg = makeDocument(Format::svg);
  svg->clip(CGRect::make(0, 0, 100, 100));
  const std::vector<CGPoint> centers{{50, 50}, {103, 50}, {120, 50}, {50, -3}, {50, -8}};
  svg->drawSymbols(ellipsePath(-3, -3, 6, 6), &kRed, nullptr, centers);
  EXPECT_EQ(occurrences(svg->finish(), "<use"), 3);
}

TEST(CGDocumentContext, EmbedsEachImageOnce) {
  const Document pdf = makeDocument(Format::pdf), svg = makeDocument(Format::svg);
  for (CGContext* context :
       {static_cast<CGContext*>(pdf.get()), static_cast<CGContext*>(svg.get())})
    context->drawImage(*columnImage(std::vector<std::uint32_t>(256, 0x123456u)),
                       CGRect::make(10.3, 10.4, 20, 200));
  EXPECT_EQ(occurrences(pdf->finish(), "/Subtype /Image"), 1);
  const std::string svgFile = svg->finish();
  EXPECT_EQ(occurrences(svgFile, "<image"), 1);
  EXPECT_EQ(occurrences(svgFile, "<pattern"), 0);
}

std::string bytesOfBase64(std::string_view text) {
  constexpr std::string_view kDigits =
      "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
  std::string bytes;
  std::size_t bits = 0, count = 0;
  for (const char c : text) {
    if (c == '=') break;
    bits = bits << 6 | kDigits.find(c);
    count += 6;
    if (count >= 8) bytes += static_cast<char>(bits >> (count -= 8));
  }
  return bytes;
}

TEST(CGDocumentContext, SendsPixelsEnlargedUnlessTheImageInterpolates) {
  for (const bool interpolates : {false, true}) {
    const Document svg = makeDocument(Format::svg);
    svg->drawImage(*translucentImage(interpolates), CGRect::make(10, 10, 20, 10));
    const std::string file = svg->finish();
    const std::size_t data = file.find("base64,") + 7;
    const DecodedPng png =
        decodedPng(bytesOfBase64(file.substr(data, file.find('"', data) - data)));
    // 20 x 10 points at 4 pixels per point.
    EXPECT_EQ(png.width, interpolates ? 2 : 80);
    EXPECT_EQ(png.height, interpolates ? 2 : 40);
    EXPECT_EQ(png.pixels.front(), 0xff090909u);
    EXPECT_EQ(png.pixels.back(), 0u);
  }
}

TEST(CGDocumentContext, WritesAnSvgWithItsSizeInPoints) {
  const std::string svg = drawn(Format::svg);
  EXPECT_THAT(svg, StartsWith("<?xml"));
  EXPECT_THAT(svg, HasSubstr("width=\"320pt\" height=\"240pt\" viewBox=\"0 0 320 240\""));
  EXPECT_THAT(svg, HasSubstr("</svg>"));
}

TEST(CGDocumentContext, WritesNumbersWithAPointInEveryLocale) {
  const Document svg = makeDocument(Format::svg);
  svg->stroke(linePath({10.5, 20.25}, {30, 40}), {.width = 1.5});
  const std::string file = svg->finish();
  EXPECT_THAT(file, HasSubstr("M10.5 219.75L30 200"));
  EXPECT_THAT(file, HasSubstr("stroke-width=\"1.5\""));
}

TEST(CGDocumentContext, CutsLongLinesNearThePage) {
  const Document svg = makeDocument(Format::svg);
  svg->stroke(linePath({-1e9, 100}, {1e9, 100}), {});
  svg->fill(rectPath(-1e9, 50, 2e9, 10), kRed);
  const std::string file = svg->finish();
  EXPECT_THAT(file, Not(testing::ContainsRegex("[0-9]{6}")));
  EXPECT_THAT(file, HasSubstr("<path"));
}

TEST(CGDocumentContext, IgnoresWhatIsDrawnAfterTheEnd) {
  for (const Format format : kFormats) {
    const Document document = makeDocument(format);
    drawScene(*document);
    const std::string bytes = document->finish();
    drawScene(*document);
    document->saveState();
    document->restoreState();
    EXPECT_EQ(document->finish(), bytes);
  }
}

TEST(CGDocumentContext, MayBeLeftUnfinished) {
  for (const Format format : kFormats) drawScene(*makeDocument(format));
}

TEST(CGDocumentContext, IgnoresARestoreWithoutSaveAndASaveWithoutRestore) {
  for (const Format format : kFormats) {
    const Document document = makeDocument(format);
    document->restoreState();
    document->saveState();
    EXPECT_FALSE(document->finish().empty());
  }
}

}  // namespace
}  // namespace vexel
