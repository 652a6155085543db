#include "SvgContext.h"

#include <glib.h>
#include <gmock/gmock.h>

#include <functional>
#include <string_view>

#include "Bitmaps.h"
#include "DecimalText.h"
#include "PangoText.h"

namespace vexel {
namespace {

using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

constexpr CGColor kFaintRed = CGColor::genericRGB(1, 0, 0, 0.25);

using Drawing = std::function<void(CGContext&)>;

std::string fileOf(const Drawing& draw) {
  SvgContext svg({100, 50});
  draw(svg);
  return svg.finish();
}

/// What stands between the tags of the file.
std::string written(const Drawing& draw) {
  const std::string file = fileOf(draw);
  const std::size_t begin = file.find('\n', file.find("<svg")) + 1;
  return file.substr(begin, file.rfind("</svg>") - begin);
}

/// Whether a file is XML: its tags are nested, its attributes quoted, its characters allowed, and
/// what it refers to is defined, once.
void expectIsXml(const std::string& file) {
  struct Names {
    std::vector<std::string> given, meant;
  } names;
  const auto start = [](GMarkupParseContext*, const gchar*, const gchar** attribute,
                        const gchar** value, gpointer data, GError**) {
    auto& found = *static_cast<Names*>(data);
    for (; *attribute; ++attribute, ++value) {
      const std::string_view name = *attribute, text = *value;
      if (name == "id") found.given.emplace_back(text);
      if (name == "xlink:href" && text.starts_with('#')) found.meant.emplace_back(text.substr(1));
      if (text.starts_with("url(#")) found.meant.emplace_back(text.substr(5, text.size() - 6));
    }
  };
  const GMarkupParser parser{start, nullptr, nullptr, nullptr, nullptr};
  GMarkupParseContext* context =
      g_markup_parse_context_new(&parser, G_MARKUP_DEFAULT_FLAGS, &names, nullptr);
  GError* error = nullptr;
  EXPECT_TRUE(g_markup_parse_context_parse(context, file.data(), std::ssize(file), &error) &&
              g_markup_parse_context_end_parse(context, &error))
      << error->message << "\n"
      << file;
  g_clear_error(&error);
  g_markup_parse_context_free(context);
  EXPECT_TRUE(std::ranges::none_of(
      file, [](char c) { return c >= 0 && c < ' ' && c != '\n' && c != '\t'; }));
  for (const char* forbidden : {"\xef\xbf\xbe", "\xef\xbf\xbf"})
    EXPECT_THAT(file, Not(HasSubstr(forbidden)));
  for (const std::string& name : names.meant) EXPECT_THAT(names.given, testing::Contains(name));
  std::ranges::sort(names.given);
  EXPECT_TRUE(std::ranges::adjacent_find(names.given) == names.given.end());
}

struct Case {
  const char* what;
  Drawing draw;
  std::string expected;
};

void expectWritten(const std::vector<Case>& cases) {
  for (const Case& c : cases) {
    EXPECT_EQ(written(c.draw), c.expected) << c.what;
    expectIsXml(fileOf(c.draw));
  }
}

CGPath triangle() {
  CGMutablePath path;
  path.move({10, 10});
  path.addLine({20, 10});
  path.addLine({15, 20});
  path.closeSubpath();
  return path;
}

TEST(SvgContext, WritesNothingForWhatCannotBeSeen) {
  const CGRect square = CGRect::make(10, 10, 20, 20);
  const std::vector<CGPoint> nowhere{{kNaN, 5}, {5, kInfinity}, {1e300, 5}, {-50, 5}};
  expectWritten({
      {"nothing", [](CGContext&) {}, ""},
      {"no path",
       [](CGContext& c) {
         c.stroke({}, {});
         c.fill({}, kRed);
       },
       ""},
      {"not a number",
       [](CGContext& c) {
         c.stroke(linePath({kNaN, 1}, {2, 2}), {});
         c.fill(rectPath(kNaN, 1, 5, 5), kRed);
       },
       ""},
      {"an endless line",
       [](CGContext& c) {
         c.stroke(linePath({1, 1}, {kInfinity, 2}), {});
       },
       ""},
      {"lines without width",
       [](CGContext& c) {
         for (const double width : {0.0, -1.0, kNaN, kInfinity})
           c.stroke(linePath({1, 1}, {2, 2}), {.width = width});
       },
       ""},
      {"transparent colours",
       [](CGContext& c) {
         const CGColor none = CGColor::genericGray(0, 0), unknown = CGColor::genericGray(0, kNaN);
         c.stroke(linePath({1, 1}, {2, 2}), {.color = none});
         c.fill(triangle(), none);
         c.fill(triangle(), unknown);
       },
       ""},
      {"a flat transform",
       [&](CGContext& c) {
         c.scale(0, 1);
         c.fill(triangle(), kRed);
         c.drawText({{{"a"}}}, {5, 5});
         c.drawImage(*columnImage({1}), square);
       },
       ""},
      {"a transform without numbers",
       [](CGContext& c) {
         c.translate(kNaN, 0);
         c.fill(triangle(), kRed);
       },
       ""},
      {"an empty clip",
       [&](CGContext& c) {
         c.clip(CGRect::make(5, 5, 0, 10));
         c.fill(triangle(), kRed);
         c.clip(square);
         c.drawText({{{"a"}}}, {5, 5});
       },
       ""},
      {"clips that do not meet",
       [&](CGContext& c) {
         c.clip(CGRect::make(0, 0, 200, 200));
         c.clip(CGRect::make(500, 0, 10, 10));
         c.fill(triangle(), kRed);
       },
       ""},
      {"an image beside the page",
       [](CGContext& c) {
         c.drawImage(*columnImage({1}), CGRect::make(500, 0, 10, 10));
         c.drawImage(*columnImage({1}), CGRect::make(0, 0, 0, 10));
         c.drawImage(*columnImage({1}), CGRect::make(kNaN, 0, 10, 10));
       },
       ""},
      {"symbols of nothing",
       [](CGContext& c) {
         c.drawSymbols({}, &kRed, nullptr, {{{5, 5}}});
       },
       ""},
      {"no symbols", [](CGContext& c) { c.drawSymbols(triangle(), &kRed, nullptr, {}); }, ""},
  });
  // Only the shape is there.
  const CGColor none = CGColor::genericGray(0, 0);
  for (const auto& [color, centers] :
       {std::pair(kRed, nowhere), std::pair(none, std::vector<CGPoint>{{5, 5}})})
    EXPECT_EQ(written([&](CGContext& c) { c.drawSymbols(triangle(), &color, nullptr, centers); }),
              "<defs>\n<path id=\"s0\" d=\"M10 -10H20L15 -20Z\"/>\n</defs>\n");
}

TEST(SvgContext, WritesPaths) {
  CGMutablePath curve = linePath({1, 2}, {3, 4});
  curve.addCurve({9, 10}, {5, 6}, {7.12345, 8});
  CGMutablePath dot = linePath({5, 5}, {5, 5});
  expectWritten({
      {"a filled rectangle", [](CGContext& c) { c.fill(rectPath(10, 5, 20, 10), kRed); },
       "<path fill=\"#f00\" d=\"M10 45H30V35H10Z\"/>\n"},
      {"an aligned one", [](CGContext& c) { c.fillAligned(CGRect::make(10.25, 5, 20, 10), kRed); },
       "<path fill=\"#f00\" d=\"M10.25 45H30.25V35H10.25Z\"/>\n"},
      {"translucent", [](CGContext& c) { c.fill(triangle(), kFaintRed); },
       "<path fill=\"#f00\" fill-opacity=\"0.25\" d=\"M10 40H20L15 30Z\"/>\n"},
      {"colours beyond all bounds",
       [](CGContext& c) { c.fill(triangle(), CGColor::genericRGB(7, kNaN, 0.5, 9)); },
       "<path fill=\"#ff0080\" d=\"M10 40H20L15 30Z\"/>\n"},
      {"a plain line",
       [](CGContext& c) {
         c.stroke(linePath({1, 2}, {3, 4}), {});
       },
       "<path stroke=\"#000\" d=\"M1 48L3 46\"/>\n"},
      {"a curve", [&](CGContext& c) { c.stroke(curve, {}); },
       "<path stroke=\"#000\" d=\"M1 48L3 46C5 44 7.123 42 9 40\"/>\n"},
      {"a dot", [&](CGContext& c) { c.stroke(dot, {.width = 3, .cap = CGLineCap::round}); },
       "<path stroke=\"#000\" stroke-width=\"3\" stroke-linecap=\"round\" d=\"M5 45H5\"/>\n"},
      {"all of a style",
       [](CGContext& c) {
         c.stroke(linePath({1, 2}, {3, 4}), {.color = kFaintRed,
                                             .width = 0.5,
                                             .cap = CGLineCap::square,
                                             .join = CGLineJoin::bevel,
                                             .dashPattern = {4, 2.5, 1},
                                             .dashPhase = 1.5});
       },
       "<path stroke=\"#f00\" stroke-opacity=\"0.25\" stroke-width=\"0.5\" "
       "stroke-linecap=\"square\" stroke-linejoin=\"bevel\" stroke-dasharray=\"4 2.5 1\" "
       "stroke-dashoffset=\"1.5\" d=\"M1 48L3 46\"/>\n"},
      {"joins",
       [](CGContext& c) {
         c.stroke(linePath({1, 2}, {3, 4}), {.join = CGLineJoin::round});
         c.stroke(linePath({1, 2}, {3, 4}), {.miterLimit = 4});
         c.stroke(linePath({1, 2}, {3, 4}), {.miterLimit = kNaN});
       },
       "<path stroke=\"#000\" stroke-linejoin=\"round\" d=\"M1 48L3 46\"/>\n"
       "<path stroke=\"#000\" stroke-miterlimit=\"4\" d=\"M1 48L3 46\"/>\n"
       "<path stroke=\"#000\" d=\"M1 48L3 46\"/>\n"},
      {"dashes that are none",
       [](CGContext& c) {
         for (const std::vector<CGFloat>& dashes :
              {std::vector<CGFloat>{0, 0}, {1, -1}, {kNaN, 1}, {1, kInfinity}})
           c.stroke(linePath({1, 2}, {3, 4}), {.dashPattern = dashes});
       },
       "<path stroke=\"#000\" d=\"M1 48L3 46\"/>\n<path stroke=\"#000\" d=\"M1 48L3 46\"/>\n"
       "<path stroke=\"#000\" d=\"M1 48L3 46\"/>\n<path stroke=\"#000\" d=\"M1 48L3 46\"/>\n"},
      {"a scaled pen",
       [](CGContext& c) {
         c.scale(2, 2);
         c.stroke(linePath({1, 2}, {3, 4}), {.dashPattern = {3}});
       },
       "<path stroke=\"#000\" stroke-width=\"2\" stroke-dasharray=\"6\" d=\"M2 46L6 42\"/>\n"},
      {"a pen that is not round",
       [](CGContext& c) {
         c.scale(2, 6);
         c.stroke(linePath({1, 2}, {3, 4}), {.dashPattern = {3}});
       },
       "<path transform=\"matrix(1 0 0 -3 0 0)\" stroke=\"#000\" stroke-width=\"2\" "
       "stroke-dasharray=\"6\" d=\"M2 -12.666667L6 -8.666667\"/>\n"},
      {"a line that leaves the page by far",
       [](CGContext& c) {
         c.stroke(linePath({-1e12, 20}, {1e12, 20}), {});
       },
       "<path stroke=\"#000\" d=\"M-4101 30H4201\"/>\n"},
  });
}

TEST(SvgContext, DefinesEqualClipsOnce) {
  const CGRect left = CGRect::make(0, 0, 30, 50), middle = CGRect::make(20, 0, 30, 50);
  const std::string definitions =
      "<defs>\n<clipPath id=\"c0\"><path d=\"M0 0H30V50H0Z\"/></clipPath>\n"
      "<clipPath id=\"c1\"><path d=\"M20 0H30V50H20Z\"/></clipPath>\n</defs>\n";
  const std::string fill = "<path fill=\"#f00\" d=\"M10 40H20L15 30Z\"/>\n";
  const auto within = [&](const std::string& name) {
    return "<g clip-path=\"url(#" + name + ")\">\n" + fill + "</g>\n";
  };
  expectWritten({
      {"more than the page",
       [&](CGContext& c) {
         c.clip(CGRect::make(-5, -5, 500, 500));
         c.fill(triangle(), kRed);
       },
       fill},
      {"nested and again",
       [&](CGContext& c) {
         for (int i = 0; i < 2; ++i) {
           const CGSavedState outer(c);
           c.clip(left);
           c.fill(triangle(), kRed);
           {
             const CGSavedState inner(c);
             c.clip(middle);
             c.fill(triangle(), kRed);
           }
           c.clip(CGRect::make(-10, -10, 60, 90));
           c.fill(triangle(), kRed);
         }
         c.fill(triangle(), kRed);
       },
       definitions + within("c0") + within("c1") + "<g clip-path=\"url(#c0)\">\n" + fill + fill +
           "</g>\n" + within("c1") + within("c0") + fill},
      {"a rectangle in another shape",
       [&](CGContext& c) {
         c.clip(triangle());
         c.clip(CGRect::make(0, 0, 100, 15));
         c.clip(CGRect::make(-10, -10, 200, 100));
         c.fill(triangle(), kRed);
       },
       "<defs>\n<clipPath id=\"c0\"><path d=\"M10 40H20L15 30Z\"/></clipPath>\n"
       "<clipPath id=\"c1\" clip-path=\"url(#c0)\"><path d=\"M0 50H100V35H0Z\"/></clipPath>\n"
       "</defs>\n" +
           within("c1")},
  });
}

TEST(SvgContext, RefersToTheShapesOfSymbols) {
  const CGColor blue = CGColor::genericRGB(0, 0, 1);
  const CGStrokeStyle thin{.width = 0.5};
  const std::vector<CGPoint> centers{{10, 10}, {20.12345, 20}, {kNaN, 0}, {30, 40}};
  const std::vector<CGSymbolStyle> styles{{&kRed, nullptr}, {&blue, &thin}};
  const std::string shape = "<defs>\n<path id=\"s0\" d=\"M-1 1H1V-1H-1Z\"/>\n</defs>\n";
  const CGPath square = rectPath(-1, -1, 2, 2);
  expectWritten({
      {"one look",
       [&](CGContext& c) {
         c.drawSymbols(square, &kRed, &thin, centers);
         c.drawSymbols(square, nullptr, &thin, std::span(centers).first(1));
       },
       shape +
           "<g fill=\"#f00\" stroke=\"#000\" stroke-width=\"0.5\">\n"
           "<use xlink:href=\"#s0\" x=\"10\" y=\"40\"/>\n"
           "<use xlink:href=\"#s0\" x=\"20.123\" y=\"30\"/>\n"
           "<use xlink:href=\"#s0\" x=\"30\" y=\"10\"/>\n</g>\n"
           "<use xlink:href=\"#s0\" x=\"10\" y=\"40\" stroke=\"#000\" stroke-width=\"0.5\"/>\n"},
      {"a look for each",
       [&](CGContext& c) {
         c.drawStyledSymbols(square, styles, std::vector<std::uint32_t>{0, 1, 1, 0}, centers);
       },
       shape + "<use xlink:href=\"#s0\" x=\"10\" y=\"40\" fill=\"#f00\"/>\n"
               "<g fill=\"#00f\" stroke=\"#000\" stroke-width=\"0.5\">\n"
               "<use xlink:href=\"#s0\" x=\"20.123\" y=\"30\"/>\n</g>\n"
               "<use xlink:href=\"#s0\" x=\"30\" y=\"10\" fill=\"#f00\"/>\n"},
      {"stretched",
       [&](CGContext& c) {
         c.scale(1, 2);
         c.drawSymbols(square, &kRed, nullptr, std::span(centers).first(1));
       },
       "<path fill=\"#f00\" d=\"M9 32H11V28H9Z\"/>\n"},
      {"too large to be defined",
       [&](CGContext& c) {
         c.drawSymbols(rectPath(0, 0, 1000, 1), &kRed, nullptr, std::span(centers).first(1));
       },
       "<path fill=\"#f00\" d=\"M10 40H1010V39H10Z\"/>\n"},
  });
}

TEST(SvgContext, PlacesTextWhereTheMeasureHasIt) {
  const CGText plain{{{"Charge"}}};
  const auto layout = PangoText::layout(plain);
  const CGFloat top = 50 - 5 - layout->size().height;
  std::string expected = "<text x=\"";
  const auto number = [](double value) { return decimalText(std::round(value * 1000) / 1000); };
  expected += number(10 + layout->size().width / 2) + "\" y=\"" +
              number(top + layout->glyphs()[0].origin.y) +
              "\" font-size=\"12\" fill=\"#000\">Charge</text>\n";
  EXPECT_EQ(written([&](CGContext& c) { c.drawText(plain, {10, 5}); }), expected);

  // A line below another, at the other side.
  const CGText lines{{{"wide line\ni"}}, CGTextAlignment::right};
  const auto twoLines = PangoText::layout(lines);
  const std::string file = written([&](CGContext& c) { c.drawText(lines, {10, 5}); });
  const CGFloat above = 50 - 5 - twoLines->size().height;
  EXPECT_THAT(file, HasSubstr("y=\"" + number(above + twoLines->glyphs().front().origin.y)));
  EXPECT_THAT(file, HasSubstr("y=\"" + number(above + twoLines->glyphs().back().origin.y)));
  const CGFloat width = twoLines->size().width;
  const CGFloat narrow = sharedTextMeasure().measure({{{"i"}}}).width;
  EXPECT_THAT(file, HasSubstr("x=\"" + number(10 + width / 2) + "\""));
  EXPECT_THAT(file, HasSubstr("x=\"" + number(10 + width - narrow / 2) + "\""));
}

TEST(SvgContext, WritesTheLooksOfText) {
  const auto afterPlace = [](const CGText& text) {
    const std::string file = fileOf([&](CGContext& c) { c.drawText(text, {10, 5}); });
    expectIsXml(file);
    const std::size_t begin = file.find("<text");
    if (begin == std::string::npos) return std::string();
    const std::size_t place = file.find('"', file.find(" y=\"", begin) + 4) + 1;
    return file.substr(place, file.find("</text>") - place);
  };
  struct {
    CGText text;
    const char* expected;
  } const cases[] = {
      {{}, ""},
      {{{{"", {}}}}, ""},
      {{{{"\n\n"}}}, ""},
      {{{{"a", {.size = kNaN}}}}, ""},
      {{{{"a", {.size = -3}}}}, ""},
      {{{{"<&>\"'"}}}, " font-size=\"12\" fill=\"#000\">&lt;&amp;&gt;&quot;'"},
      {{{{"a\x01\x1f\x7f\xef\xbf\xbe\xef\xbf\xbf"
          "b"}}},
       " font-size=\"12\" fill=\"#000\">a\x7f"
       "b"},
      {{{{"a\xff\xc3"
          "b"}}},
       " font-size=\"12\" fill=\"#000\">a\xef\xbf\xbd\xef\xbf\xbd"
       "b"},
      {{{{" µ  β "}}}, " font-size=\"12\" fill=\"#000\"> µ  β "},
      {{{{"a", {.size = 9.5, .bold = true, .italic = true}, kFaintRed}}},
       " font-size=\"9.5\" font-weight=\"bold\" font-style=\"italic\" fill=\"#f00\" "
       "fill-opacity=\"0.25\">a"},
      {{{{"a", {.family = "Times New Roman, serif"}}}},
       " font-family=\"'Times New Roman',serif,sans-serif\" font-size=\"12\" fill=\"#000\">a"},
      {{{{"a", {.family = "O'Neil\"<\\\xff"}}}},
       " font-family=\"'O\\'Neil&quot;&lt;\\\\\xef\xbf\xbd',sans-serif\" font-size=\"12\" "
       "fill=\"#000\">a"},
      {{{{"a", {.family = " ,, "}}}},
       " font-family=\"sans-serif\" font-size=\"12\" fill=\"#000\">a"},
      {{{{"10", {.size = 10}},
         {"-3", {.size = 10}, kRed, 1},
         {"m", {.size = 10}},
         {"2", {.size = 20}, {kRed}, -1}}},
       "><tspan font-size=\"10\" fill=\"#000\">10</tspan>"
       "<tspan dy=\"-4\" font-size=\"7\" fill=\"#f00\">-3</tspan>"
       "<tspan dy=\"4\" font-size=\"10\" fill=\"#000\">m</tspan>"
       "<tspan dy=\"4\" font-size=\"14\" fill=\"#f00\">2</tspan>"},
      {{{{"2", {.size = 10}, kRed, 1}}},
       "><tspan dy=\"-4\" font-size=\"7\" fill=\"#f00\">2</tspan>"},
      {{{{"\xd7\xa9\xd7\x9c"}}},
       " direction=\"rtl\" font-size=\"12\" fill=\"#000\">\xd7\xa9\xd7\x9c"},
  };
  for (const auto& c : cases)
    EXPECT_EQ(afterPlace(c.text), c.expected) << testing::PrintToString(c.expected);
}

TEST(SvgContext, TurnsText) {
  EXPECT_THAT(written([](CGContext& c) {
                c.translate(50, 25);
                c.rotate(std::acos(0));
                c.drawText({{{"up"}}}, {0, 0});
              }),
              StartsWith("<text transform=\"matrix(0 -1 1 0 "));
}

TEST(SvgContext, RaisesTextAsFarAsTheLayoutDoes) {
  const CGText text{{{"10", {.size = 10}}, {"-3", {.size = 10}, kRed, 1}}};
  const auto glyphs = PangoText::layout(text)->glyphs();
  EXPECT_NEAR(glyphs.back().origin.y - glyphs.front().origin.y, -4, 1e-3);
  EXPECT_NEAR(PangoText::layout(text)->lines()[0].baseline, glyphs.front().origin.y, 1e-3);
}

TEST(SvgContext, EmbedsImagesWhereTheyStand) {
  const auto image = columnImage({0xff0000, 0x00ff00});
  const CGRect rect = CGRect::make(10, 5, 20, 30);
  EXPECT_THAT(written([&](CGContext& c) { c.drawImage(*image, rect); }),
              StartsWith("<image x=\"10\" y=\"15\" width=\"20\" height=\"30\" "
                         "preserveAspectRatio=\"none\" image-rendering=\"optimizeSpeed\" "
                         "style=\"image-rendering:pixelated\" "
                         "xlink:href=\"data:image/png;base64,iVBORw0KGgo"));
  EXPECT_THAT(written([&](CGContext& c) {
                c.scale(2, 0.5);
                c.drawImage(*columnImage({1}, true), rect);
              }),
              StartsWith("<image x=\"20\" y=\"32.5\" width=\"40\" height=\"15\" "
                         "preserveAspectRatio=\"none\" xlink:href="));
  EXPECT_THAT(
      written([&](CGContext& c) {
        c.translate(50, 0);
        c.rotate(std::acos(0));
        c.drawImage(*image, rect);
      }),
      StartsWith("<image transform=\"matrix(0 -1 1 0 15 40)\" width=\"20\" height=\"30\" "));
  expectIsXml(fileOf([&](CGContext& c) { c.drawImage(*image, rect); }));
}

TEST(SvgContext, ClosesTheGroupThatIsOpenAtTheEnd) {
  const std::string file = fileOf([](CGContext& c) {
    c.saveState();
    c.clip(CGRect::make(1, 1, 5, 5));
    c.fill(triangle(), kRed);
  });
  EXPECT_THAT(file, testing::EndsWith("</g>\n</svg>\n"));
  expectIsXml(file);
}

}  // namespace
}  // namespace vexel
