#include "FileNumber.h"

#include <gtest/gtest.h>

#include "Bitmaps.h"

namespace vexel {
namespace {

TEST(FileNumber, IsShortAndOfTheSameKindInEveryFile) {
  struct {
    double value;
    const char* thousandths;
    const char* millionths;
  } const cases[] = {{kNaN, "0", "0"},
                     {kInfinity, "1000000000000000", "1000000000000"},
                     {-1e300, "-1000000000000000", "-1000000000000"},
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

}  // namespace
}  // namespace vexel
