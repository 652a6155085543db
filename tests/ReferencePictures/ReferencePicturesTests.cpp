#include "pictures/ReferencePictures.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>
#include <functional>
#include <iterator>
#include <set>

#include "pictures/Picture.h"

namespace vexel {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

constexpr CGSize kSize{60, 40};
constexpr CGColor kBlue = CGColor::genericRGB(0, 0, 1);
constexpr CGColor kAlmostBlue = CGColor::genericRGB(0, 0, 254 / 255.0);

using Drawing = std::function<void(CGContext&)>;

void drawFigure(CGContext& context, const CGColor& color, CGPoint at = {10, 10}) {
  CGMutablePath ground;
  ground.addRect({{0, 0}, kSize});
  context.fill(ground, CGColor::genericGray(1));
  CGMutablePath square;
  square.addRect({at, {20, 15}});
  context.fill(square, color);
}

class ReferencePicturesTest : public testing::Test {
 protected:
  ReferencePicturesTest() {
    const auto* const test = testing::UnitTest::GetInstance()->current_test_info();
    const auto home = std::filesystem::path(testing::TempDir()) /
                      (std::string("vexel-references-") + test->name());
    std::filesystem::remove_all(home);
    pictures = {.folder = home / "kept", .failures = home / "failures"};
  }
  ~ReferencePicturesTest() override { std::filesystem::remove_all(pictures.folder.parent_path()); }

  testing::AssertionResult show(const Drawing& draw, CGSize size = kSize) {
    const auto context = CGBitmapContext::create(size, 1);
    draw(*context);
    return pictures.show(Picture::of(*context), "figure");
  }

  void keep(const Drawing& draw) {
    pictures.renews = true;
    EXPECT_TRUE(show(draw));
    pictures.renews = false;
  }

  std::set<std::string> failures() {
    std::set<std::string> names;
    if (std::filesystem::exists(pictures.failures))
      for (const auto& file : std::filesystem::directory_iterator(pictures.failures))
        names.insert(file.path().filename().string());
    return names;
  }

  std::optional<Picture> failure(const std::string& what) {
    std::ifstream file(pictures.failures / ("figure-" + what + ".png"), std::ios::binary);
    return Picture::fromPng({std::istreambuf_iterator<char>(file), {}});
  }

  void expectRefused(const Drawing& draw, CGSize size = kSize) {
    const auto result = show(draw, size);
    EXPECT_FALSE(result);
    for (const std::string what : {"got", "wanted", "difference"})
      EXPECT_THAT(result.message(), HasSubstr("figure-" + what + ".png"));
    EXPECT_THAT(failures(),
                ElementsAre("figure-difference.png", "figure-got.png", "figure-wanted.png"));
    const auto got = failure("got"), wanted = failure("wanted"), differs = failure("difference");
    ASSERT_TRUE(got && wanted && differs);
    EXPECT_EQ(*differs, difference(*wanted, *got));
    EXPECT_TRUE(std::count(differs->pixels.begin(), differs->pixels.end(), 0xff000000u) > 0);
    std::filesystem::remove_all(pictures.failures);
  }

  ReferencePictures pictures;
};

const Drawing kFigure = [](CGContext& context) { drawFigure(context, kBlue); };

TEST_F(ReferencePicturesTest, RefuseABlankAShiftedAndARecolouredPicture) {
  keep(kFigure);
  expectRefused([](CGContext&) {});
  expectRefused([](CGContext& context) { drawFigure(context, CGColor::genericGray(1)); });
  expectRefused([](CGContext& context) { drawFigure(context, kBlue, {11, 10}); });
  expectRefused([](CGContext& context) { drawFigure(context, kBlue, {10, 9}); });
  expectRefused([](CGContext& context) { drawFigure(context, kAlmostBlue); });
}

TEST_F(ReferencePicturesTest, RefuseAPictureOfAnotherSize) {
  keep(kFigure);
  expectRefused(kFigure, {61, 40});
  expectRefused(kFigure, {60, 39});
}

TEST_F(ReferencePicturesTest, RefuseAPictureThatIsNotKept) {
  const auto result = show(kFigure);
  EXPECT_FALSE(result);
  EXPECT_THAT(result.message(), HasSubstr("is no picture"));
  EXPECT_THAT(failures(), ElementsAre("figure-got.png"));
  EXPECT_FALSE(std::filesystem::exists(pictures.folder));
}

TEST_F(ReferencePicturesTest, RefuseAFileThatIsNoPicture) {
  std::filesystem::create_directories(pictures.folder);
  std::ofstream(pictures.folder / "figure.png") << "no picture";
  EXPECT_FALSE(show(kFigure));
}

TEST_F(ReferencePicturesTest, TakeTheSamePictureAndWriteNothing) {
  keep(kFigure);
  EXPECT_TRUE(show(kFigure));
  EXPECT_THAT(failures(), IsEmpty());
}

TEST_F(ReferencePicturesTest, KeepTransparentPixels) {
  const Drawing clear = [](CGContext& context) {
    CGMutablePath square;
    square.addRect({{3, 3}, {20, 15}});
    context.fill(square, CGColor::genericRGB(1, 0.5, 0, 0.25));
  };
  keep(clear);
  EXPECT_TRUE(show(clear));
  expectRefused(kFigure);
}

TEST_F(ReferencePicturesTest, AreRenewedOnlyOnRequest) {
  keep(kFigure);
  const Drawing other = [](CGContext& context) { drawFigure(context, kAlmostBlue); };
  expectRefused(other);
  EXPECT_TRUE(show(kFigure));
  keep(other);
  EXPECT_TRUE(show(other));
  EXPECT_FALSE(show(kFigure));
}

}  // namespace
}  // namespace vexel
