#include <Kitbase/EmptyFormatter.h>
#include <gtest/gtest.h>

#include <limits>
#include <memory>

namespace vexel {
namespace {

TEST(EmptyFormatter, WritesNothingForAnyValue) {
  using Limits = std::numeric_limits<double>;
  const std::shared_ptr<NSFormatter> formatter = std::make_shared<EmptyFormatter>();
  for (double value : {Limits::quiet_NaN(), Limits::infinity(), -Limits::infinity(), Limits::max(),
                       Limits::denorm_min(), 0.0, -0.0, 1.0, -2.5})
    EXPECT_EQ(formatter->string(value), "") << value;
}

}  // namespace
}  // namespace vexel
