#include <Kernels/LineRaster.h>
#include <cairo.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <iostream>
#include <limits>
#include <memory>
#include <random>
#include <string>
#include <tuple>
#include <vector>

namespace vexel {
namespace {

using Points = std::vector<CGPoint>;

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr std::uint32_t kBlack = 0xFF000000;
constexpr std::uint32_t kHalfBlack = 0x80000000;
constexpr std::uint32_t kWhite = 0xFFFFFFFF;

class Picture {
 public:
  Picture(int width, int height)
      : width_(width), height_(height), pixels_(static_cast<std::size_t>(width * height), kWhite) {}

  PixelBuffer buffer() { return {pixels_.data(), width_, height_, width_}; }
  PixelRect all() const { return {0, 0, width_, height_}; }
  int ink(int x, int y) const {
    return 255 - static_cast<int>(pixels_[static_cast<std::size_t>(y * width_ + x)] & 0xFF);
  }
  double inkSum() const {
    double sum = 0;
    for (std::uint32_t pixel : pixels_) sum += 255 - static_cast<int>(pixel & 0xFF);
    return sum / 255;
  }
  int width() const { return width_; }
  int height() const { return height_; }

  void stroke(const Points& points, double width, std::uint32_t color = kBlack) {
    stroke(points, width, color, all());
  }
  void stroke(const Points& points, double width, std::uint32_t color, const PixelRect& clip,
              const CurveShape& shape = {}) {
    LineRaster line(buffer(), clip, width, shape);
    line.add(points);
    line.draw(color);
  }

  friend bool operator==(const Picture&, const Picture&) = default;

 private:
  int width_;
  int height_;
  std::vector<std::uint32_t> pixels_;
};

/// One stroke by the drawing library. A point that is not finite breaks the line.
Picture plainStroke(int width, int height, const Points& points, double lineWidth,
                    std::uint32_t color) {
  Picture picture(width, height);
  const std::unique_ptr<cairo_surface_t, decltype(&cairo_surface_destroy)> surface(
      cairo_image_surface_create_for_data(reinterpret_cast<unsigned char*>(picture.buffer().pixels),
                                          CAIRO_FORMAT_ARGB32, width, height, 4 * width),
      cairo_surface_destroy);
  const std::unique_ptr<cairo_t, decltype(&cairo_destroy)> context(cairo_create(surface.get()),
                                                                   cairo_destroy);
  cairo_set_line_join(context.get(), CAIRO_LINE_JOIN_ROUND);
  cairo_set_line_cap(context.get(), CAIRO_LINE_CAP_ROUND);
  cairo_set_line_width(context.get(), lineWidth);
  cairo_set_source_rgba(context.get(), 0, 0, 0, (color >> 24) / 255.0);
  for (CGPoint p : points) {
    if (!std::isfinite(p.x) || !std::isfinite(p.y)) {
      cairo_new_sub_path(context.get());
      continue;
    }
    // A point alone is drawn as a line to itself.
    if (!cairo_has_current_point(context.get())) cairo_move_to(context.get(), p.x, p.y);
    cairo_line_to(context.get(), p.x, p.y);
  }
  cairo_stroke(context.get());
  return picture;
}

struct Difference {
  double inked = 0;
  double beyond16 = 0;
  int largest = 0;

  double share() const { return inked > 0 ? beyond16 / inked : 0; }
};

Difference difference(const Picture& a, const Picture& b) {
  Difference found;
  for (int y = 0; y < a.height(); ++y)
    for (int x = 0; x < a.width(); ++x) {
      if (a.ink(x, y) == 0 && b.ink(x, y) == 0) continue;
      const int apart = std::abs(a.ink(x, y) - b.ink(x, y));
      found.inked += 1;
      if (apart > 16) found.beyond16 += 1;
      found.largest = std::max(found.largest, apart);
    }
  return found;
}

/// What series know of their curves: how steep long ones of few points without gaps are.
CurveShape shapeOf(const Points& points, int width) {
  CurveShape shape{.pointsPerPixel = static_cast<double>(points.size()) / width};
  if (shape.pointsPerPixel > 2 || !(std::abs(points.back().x - points.front().x) >= 100))
    return shape;
  double steepest = 0;
  for (std::size_t i = 1; i < points.size(); ++i) {
    const double slope = (points[i].y - points[i - 1].y) / (points[i].x - points[i - 1].x);
    if (!std::isfinite(slope)) return shape;
    steepest = std::max(steepest, std::abs(slope));
  }
  shape.steepest = steepest;
  return shape;
}

void expectLikePlainStroke(const std::string& name, int width, int height, const Points& points,
                           double lineWidth, std::uint32_t color) {
  Picture picture(width, height);
  picture.stroke(points, lineWidth, color, picture.all(), shapeOf(points, width));
  const Difference found =
      difference(picture, plainStroke(width, height, points, lineWidth, color));
  std::cout << name << ", width " << lineWidth << ", alpha " << (color >> 24) << ": "
            << 100 * found.share() << " % of " << found.inked
            << " inked pixels differ by more than 16, the largest difference is " << found.largest
            << "\n";
  EXPECT_GT(found.inked, 0);
  EXPECT_LE(found.share(), 0.03) << name << ", width " << lineWidth;
  EXPECT_LE(found.largest, 64) << name << ", width " << lineWidth;
}

Points randomWalk(int count, double width, double height) {
  std::mt19937 random(static_cast<unsigned>(count));
  std::normal_distribution<double> normal;
  Points points;
  const double step = height / 4 / std::sqrt(count);
  double walk = 0;
  for (int i = 0; i < count; ++i) {
    walk += step * normal(random);
    points.push_back({width * i / (count - 1), height / 2 + walk + height / 30 * normal(random)});
  }
  return points;
}

class LineRasterOfWalks : public testing::TestWithParam<std::tuple<int, double, std::uint32_t>> {};

TEST_P(LineRasterOfWalks, LooksLikeOnePlainStroke) {
  const auto [count, width, color] = GetParam();
  expectLikePlainStroke(std::to_string(count) + " points", 1600, 1000,
                        randomWalk(count, 1600, 1000), width, color);
}

INSTANTIATE_TEST_SUITE_P(Sparse, LineRasterOfWalks,
                         testing::Combine(testing::Values(1000, 10000),
                                          testing::Values(0.5, 1.0, 1.5, 2.0, 5.0),
                                          testing::Values(kBlack, kHalfBlack)));
// The plain stroke takes seconds here.
INSTANTIATE_TEST_SUITE_P(Dense, LineRasterOfWalks,
                         testing::Combine(testing::Values(32000, 100000),
                                          testing::Values(0.5, 1.0, 5.0), testing::Values(kBlack)));
INSTANTIATE_TEST_SUITE_P(DenseTranslucent, LineRasterOfWalks,
                         testing::Values(std::tuple{100000, 1.0, kHalfBlack}));

TEST(LineRaster, LooksLikeOnePlainStrokeForEveryShape) {
  Points sine, steps, dots, gaps, rising;
  for (int i = 0; i <= 400; ++i) {
    sine.push_back({i * 0.5, 100 + 60 * std::sin(i * 0.1)});
    if (i % 20 == 0) {
      steps.push_back({i * 0.5, 60.0 + i % 60});
      steps.push_back({i * 0.5 + 10, 60.0 + i % 60});
      dots.push_back({i * 0.5, 40.0 + i * 37 % 120});
      dots.push_back({kNaN, 0});
    }
    gaps.push_back(i % 7 == 3 ? CGPoint{i * 0.5, kInfinity}
                              : CGPoint{i * 0.5, 100 + 60 * std::sin(i * 0.9)});
    rising.push_back({100 + i * 0.001, i * 0.4});
  }
  const std::pair<const char*, Points> shapes[] = {
      {"horizontal", {{20, 50.3}, {180, 50.3}}},
      {"vertical", {{70.3, 20}, {70.3, 170}}},
      {"nearly vertical", {{70.3, 20}, {71, 170}}},
      {"steep", {{70.3, 170}, {85, 20}}},
      {"flat", {{10, 100}, {190, 111}}},
      {"diagonal", {{10, 10}, {190, 190}}},
      {"beyond the edges", {{-500, 700}, {90, -20}, {700, 500}}},
      {"corner", {{20, 20}, {100, 180}, {180, 20}}},
      {"spike", {{20, 150}, {100, 150}, {100.2, 20}, {100.4, 150}, {180, 150}}},
      {"short", {{100.2, 100.2}, {100.4, 100.3}}},
      {"dot", {{100.3, 80.7}}},
      {"sine", sine},
      {"steps", steps},
      {"dots", dots},
      {"gaps", gaps},
      {"rising", rising},
  };
  for (const auto& [name, points] : shapes)
    for (double width : {1.0, 1.5, 3.0, 10.0, 40.0})
      for (std::uint32_t color : {kBlack, kHalfBlack})
        expectLikePlainStroke(name, 200, 200, points, width, color);
}

TEST(LineRaster, DrawsNothingOutOfNothing) {
  for (const Points& points : {Points{}, Points{{kNaN, kNaN}, {kInfinity, 3}, {2, -kInfinity}}}) {
    Picture picture(20, 20);
    picture.stroke(points, 2);
    EXPECT_EQ(picture, Picture(20, 20));
  }
}

TEST(LineRaster, CoversRowsAndColumnsExactly) {
  Picture horizontal(30, 30);
  horizontal.stroke({{-5, 10.5}, {40, 10.5}}, 1);
  Picture vertical(30, 30);
  vertical.stroke({{10.5, -5}, {10.5, 40}}, 1);
  for (int y = 0; y < 30; ++y)
    for (int x = 0; x < 30; ++x) {
      EXPECT_EQ(horizontal.ink(x, y), y == 10 ? 255 : 0) << x << " " << y;
      EXPECT_EQ(vertical.ink(x, y), x == 10 ? 255 : 0) << x << " " << y;
    }
}

TEST(LineRaster, DrawsIsolatedPointsAsDotsOfThePensSize) {
  for (double width : {0.7, 1.0, 2.5, 8.0, 31.0}) {
    const double area = std::acos(-1) * width * width / 4;
    for (double place : {20.0, 20.3, 20.5, 20.97}) {
      Picture picture(40, 40);
      picture.stroke({{kNaN, 1}, {place, 41 - place}, {30, kNaN}}, width);
      EXPECT_NEAR(picture.inkSum(), area, 0.02 * area + 0.01) << width << " at " << place;
    }
  }
}

TEST(LineRaster, DoesNotBridgeGapsShorterThanASamplingLineIsWide) {
  Picture picture(40, 40);
  picture.stroke({{5, 5}, {20, 5}, {kNaN, 9}, {20.01, 35}, {35, 35}}, 2);
  for (int y = 8; y < 32; ++y)
    for (int x = 0; x < 40; ++x) EXPECT_EQ(picture.ink(x, y), 0) << x << " " << y;
  EXPECT_EQ(picture.ink(18, 4), 255);
  EXPECT_EQ(picture.ink(22, 35), 255);
}

TEST(LineRaster, CoversOnceWhereATranslucentCurveIsDense) {
  Points points;
  for (int i = 0; i < 20000; ++i) points.push_back({i * 0.002, i % 2 == 0 ? 10.0 : 30.0});
  Picture picture(40, 40);
  picture.stroke(points, 2, kHalfBlack);
  for (int y = 11; y < 29; ++y)
    for (int x = 2; x < 38; ++x) EXPECT_EQ(picture.ink(x, y), 128) << x << " " << y;
}

TEST(LineRaster, CoversOnceAcrossGapsNarrowerThanThePen) {
  Picture picture(40, 40);
  picture.stroke(
      {{5, 20}, {19, 20}, {kNaN, 0}, {20, 20}, {kNaN, 0}, {20, 21}, {kNaN, 0}, {21, 20}, {35, 20}},
      6, kHalfBlack);
  for (int x = 5; x < 35; ++x) EXPECT_EQ(picture.ink(x, 20), 128) << x;
}

TEST(LineRaster, DrawsTheSameInBothDirections) {
  Points points = randomWalk(3000, 300, 200);
  points[1000].y = kNaN;
  Picture forward(300, 200), backward(300, 200);
  forward.stroke(points, 1.5);
  std::reverse(points.begin(), points.end());
  backward.stroke(points, 1.5);
  EXPECT_EQ(difference(forward, backward).largest, 0);
}

TEST(LineRaster, TouchesOnlyTheClipAndDrawsThereWhatTheWholePictureShows) {
  const Points points = randomWalk(5000, 300, 200);
  Picture whole(300, 200);
  whole.stroke(points, 3);
  for (const PixelRect clip : {PixelRect{17, 33, 150, 122}, PixelRect{-10, -10, 40, 500},
                               PixelRect{250, 0, 9000, 200}, PixelRect{100, 90, 101, 110}}) {
    Picture part(300, 200);
    part.stroke(points, 3, kBlack, clip);
    for (int y = 0; y < 200; ++y)
      for (int x = 0; x < 300; ++x) {
        const bool isInside = x >= clip.left && x < clip.right && y >= clip.top && y < clip.bottom;
        EXPECT_NEAR(part.ink(x, y), isInside ? whole.ink(x, y) : 0, isInside ? 1 : 0);
      }
  }
}

TEST(LineRaster, DrawsNothingIntoAnEmptyClip) {
  for (const PixelRect clip : {PixelRect{}, PixelRect{5, 5, 5, 10}, PixelRect{9, 5, 4, 10},
                               PixelRect{500, 0, 600, 20}, PixelRect{0, -9, 20, -1}}) {
    Picture picture(20, 20);
    picture.stroke({{1, 1}, {15, 15}}, 3, kBlack, clip);
    EXPECT_EQ(picture, Picture(20, 20));
  }
}

TEST(LineRaster, ShiftsByWholePixelsWithoutChange) {
  Points points = randomWalk(20000, 300, 200);
  Picture before(300, 200), after(300, 200);
  before.stroke(points, 1);
  for (CGPoint& p : points) p = {p.x + 64, p.y + 16};
  after.stroke(points, 1);
  for (int y = 0; y < 180; ++y)
    for (int x = 0; x < 230; ++x) EXPECT_NEAR(before.ink(x, y), after.ink(x + 64, y + 16), 1);
}

TEST(LineRaster, DrawsLinesOfPointsFarAway) {
  struct Case {
    Points far, near;
  };
  const Case cases[] = {
      {{{-1e300, -1e300}, {1e300, 1e300}}, {{-100, -100}, {100, 100}}},
      {{{-1e300, 15}, {1e300, 15}}, {{-100, 15}, {100, 15}}},
      {{{-1e12, 25}, {1e12, 5}}, {{-100, 15}, {100, 15}}},
      {{{12, 5}, {12, 1e300}, {1e300, 1e300}}, {{12, 5}, {12, 100}}},
      {{{5, 5}, {20, -1e308}, {21, 1e308}, {25, 8}},
       {{5, 5}, {5, -100}, {20.5, -100}, {20.5, 100}, {25, 100}, {25, 8}}},
      {{{5, 5}, {1e300, 5}, {kNaN, 0}, {1e301, 20}}, {{5, 5}, {100, 5}}},
  };
  for (const auto& [far, near] : cases) {
    Picture a(30, 30), b(30, 30);
    a.stroke(far, 2);
    b.stroke(near, 2);
    EXPECT_GT(b.inkSum(), 10);
    EXPECT_LE(difference(a, b).largest, 2);
  }
}

TEST(LineRaster, LeavesThePixelsBetweenTheRowsAlone) {
  std::vector<std::uint32_t> pixels(30 * 20, kWhite);
  const PixelBuffer buffer{pixels.data(), 20, 20, 30};
  LineRaster line(buffer, {0, 0, 20, 20}, 50);
  line.add(Points{{-5, 10}, {40, 10}});
  line.draw(kBlack);
  for (std::size_t i = 0; i < pixels.size(); ++i)
    EXPECT_EQ(pixels[i], i % 30 < 20 ? kBlack : kWhite) << i;
}

}  // namespace
}  // namespace vexel
