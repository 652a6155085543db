#include <gtest/gtest.h>

#include <QApplication>
#include <memory>

namespace vexel {
namespace {

/// An application without a display, with a screen of each ratio.
class QtEnvironment : public testing::Environment {
 public:
  void SetUp() override {
    qputenv("QT_QPA_PLATFORM", "offscreen:configfile=" VEXEL_TEST_SCREENS);
    application_ = std::make_unique<QApplication>(argc_, argv_);
  }
  void TearDown() override { application_.reset(); }

 private:
  int argc_ = 1;
  char name_[9] = "QtTests";
  char* argv_[2] = {name_, nullptr};
  std::unique_ptr<QApplication> application_;
};

[[maybe_unused]] const auto* const kEnvironment =
    testing::AddGlobalTestEnvironment(new QtEnvironment);

}  // namespace
}  // namespace vexel
