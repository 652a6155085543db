#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>
#include <string>

#include "pictures/Picture.h"
#include "pictures/ReferencePictures.h"

namespace vexel {
namespace {

namespace fs = std::filesystem;

const fs::path kKept = VEXEL_SOURCES "/docs/images";

/// A new folder in which programs are run; it is gone afterwards.
class Workshop {
 public:
  explicit Workshop(const std::string& name)
      : folder_(fs::temp_directory_path() / ("vexel-" + name + "-" + std::to_string(getpid()))) {
    fs::remove_all(folder_);
    fs::create_directories(folder_);
  }
  ~Workshop() { fs::remove_all(folder_); }

  int run(const fs::path& program) const {
    const std::string command = "cd '" + folder_.string() + "' && '" + program.string() + "'";
    return std::system(command.c_str());
  }
  const fs::path& folder() const { return folder_; }

 private:
  fs::path folder_;
};

std::set<std::string> picturesIn(const fs::path& folder) {
  std::set<std::string> names;
  for (const auto& entry : fs::directory_iterator(folder))
    if (entry.path().extension() == ".png") names.insert(entry.path().stem());
  return names;
}

void expectKept(const Workshop& workshop, const std::string& page) {
  for (const std::string& name : picturesIn(workshop.folder())) {
    std::ifstream stream(workshop.folder() / (name + ".png"), std::ios::binary);
    const auto drawn = Picture::fromPng({std::istreambuf_iterator<char>(stream), {}});
    ASSERT_TRUE(drawn) << name;
    EXPECT_TRUE(keptIn(kKept / page).show(*drawn, name));
  }
  EXPECT_EQ(picturesIn(workshop.folder()), picturesIn(kKept / page));
}

TEST(PagePicturesTests, TheGuideShowsWhatItsProgramsDraw) {
  const Workshop workshop("guide");
  for (const auto& entry : fs::directory_iterator(VEXEL_SOURCES "/docs/examples")) {
    const std::string name = entry.path().stem();
    if (entry.path().extension() != ".cpp" || name == "window") continue;
    EXPECT_EQ(workshop.run(fs::path(VEXEL_GUIDE_PROGRAMS) / ("guide-" + name)), 0) << name;
  }
  expectKept(workshop, "guide");
}

TEST(PagePicturesTests, TheGalleryShowsWhatItsProgramDraws) {
  const Workshop workshop("gallery");
  ASSERT_EQ(workshop.run(VEXEL_GALLERY), 0);
  expectKept(workshop, "gallery");
}

}  // namespace
}  // namespace vexel
