#include "SvgValues.h"

#include <gtest/gtest.h>

#include "Bitmaps.h"

namespace vexel {
namespace {

TEST(SvgNumbers, AreShortAndNeverOfAnotherKind) {
  struct {
    double value;
    const char* thousandths;
    const char* millionths;
  } const cases[] = {{kNaN, "0", "0"},
                     {kInfinity, "1000000000000", "1000000000000"},
                     {-1e300, "-1000000000000", "-1000000000000"},
                     {-0.0, "0", "0"},
                     {-1e-9, "0", "0"},
                     {-0.0004, "0", "-0.0004"},
                     {-0.0005, "-0.001", "-0.0005"},
                     {0.9996, "1", "0.9996"},
                     {0.05, "0.05", "0.05"},
                     {1.001, "1.001", "1.001"},
                     {-12.3456789, "-12.346", "-12.345679"},
                     {100, "100", "100"},
                     {65536.5, "65536.5", "65536.5"}};
  for (const auto& c : cases) {
    std::string thousandths, millionths;
    appendNumber(thousandths, c.value);
    appendNumber(millionths, c.value, kMatrixDecimals);
    EXPECT_EQ(thousandths, c.thousandths);
    EXPECT_EQ(millionths, c.millionths);
  }
}

TEST(SvgPaths, TellUprightLinesBySteps) {
  // Equal after rounding is equal; after a subpath has been closed, it starts where it began.
  CGMutablePath path = linePath({1, 1}, {1.0001, 5});
  path.addLine({9, 5});
  path.addLine({7, 7});
  path.closeSubpath();
  path.addLine({1, 3});
  std::string data;
  appendPathData(data, path);
  EXPECT_EQ(data, "M1 1V5H9L7 7ZV3");
}

}  // namespace
}  // namespace vexel
