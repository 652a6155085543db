#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <regex>
#include <set>
#include <sstream>
#include <string>
#include <vector>

namespace {

namespace fs = std::filesystem;

const fs::path kSources = VEXEL_SOURCES;

std::string contents(const fs::path& file) {
  std::ifstream stream(file, std::ios::binary);
  return {std::istreambuf_iterator<char>(stream), {}};
}

std::vector<fs::path> filesIn(const fs::path& folder, const std::set<std::string>& extensions) {
  std::vector<fs::path> files;
  for (const auto& entry : fs::directory_iterator(folder))
    if (extensions.contains(entry.path().extension())) files.push_back(entry.path());
  std::sort(files.begin(), files.end());
  return files;
}

std::vector<fs::path> pages() {
  std::vector<fs::path> all = filesIn(kSources / "docs", {".md"});
  all.push_back(kSources / "README.md");
  all.push_back(kSources / "CONTRIBUTING.md");
  return all;
}

/// What stands between "```cpp" and "```", without them.
std::vector<std::string> listingsOf(const std::string& page) {
  static const std::string kBegin = "\n```cpp\n";
  std::vector<std::string> listings;
  for (std::size_t at = page.find(kBegin); at != std::string::npos; at = page.find(kBegin, at)) {
    at += kBegin.size();
    listings.push_back(page.substr(at, page.find("\n```", at) + 1 - at));
  }
  return listings;
}

/// The programs and headers that pages may show. All of them are built, and programs run.
std::string programs() {
  std::string all;
  for (const char* folder : {"docs/examples", "examples/first-figure", "examples/hello-qt"})
    for (const auto& file : filesIn(kSources / folder, {".cpp", ".h"}))
      all += "\n" + contents(file);
  return all;
}

/// The anchors of a page: its headings in lower case, with hyphens for spaces and without signs.
std::set<std::string> anchorsOf(const std::string& page) {
  std::set<std::string> anchors;
  std::istringstream lines(page);
  for (std::string line; std::getline(lines, line);) {
    if (!line.starts_with("#")) continue;
    std::string anchor = "#";
    for (const char c : line.substr(line.find(' ') + 1)) {
      if (c == ' ') anchor += '-';
      if (std::isalnum(static_cast<unsigned char>(c)) != 0 || c == '-')
        anchor += static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    }
    anchors.insert(anchor);
  }
  return anchors;
}

TEST(PagesTests, EveryListingOfAPageIsLinesOfAProgramThatIsBuilt) {
  const std::string built = programs();
  std::size_t count = 0;
  for (const auto& page : pages())
    for (const auto& listing : listingsOf(contents(page))) {
      ++count;
      EXPECT_NE(built.find("\n" + listing), std::string::npos) << page << " shows\n" << listing;
    }
  EXPECT_GT(count, 10u);
}

TEST(PagesTests, EveryProgramThatIsBuiltForThePagesIsNamedThere) {
  const std::string guide =
      contents(kSources / "docs/guide.md") + contents(kSources / "docs/porting.md");
  for (const auto& program : filesIn(kSources / "docs/examples", {".cpp", ".h"})) {
    const std::string link = "(examples/" + program.filename().string() + ")";
    EXPECT_NE(guide.find(link), std::string::npos) << link;
  }
}

TEST(PagesTests, WhatAPageLinksToIsThere) {
  static const std::regex kListing("```[^`]*```");
  static const std::regex kLink(R"(\]\(([^)#]*)(#[^)]*)?\))");
  for (const auto& page : pages()) {
    const std::string text = std::regex_replace(contents(page), kListing, "");
    for (auto link = std::sregex_iterator(text.begin(), text.end(), kLink);
         link != std::sregex_iterator(); ++link) {
      const std::string target = (*link)[1];
      const std::string anchor = (*link)[2];
      if (target.find("://") != std::string::npos) continue;
      const fs::path file = target.empty() ? page : page.parent_path() / target;
      EXPECT_TRUE(fs::exists(file)) << page << " links to " << target;
      if (!anchor.empty()) {
        EXPECT_TRUE(anchorsOf(contents(file)).contains(anchor)) << page << " links to " << anchor;
      }
    }
  }
}

TEST(PagesTests, EveryPictureOfTheGuideAndTheGalleryIsShownAndSmall) {
  for (const char* name : {"guide", "gallery"}) {
    const std::string page = contents(kSources / "docs" / (std::string(name) + ".md"));
    for (const auto& picture : filesIn(kSources / "docs/images" / name, {".png"})) {
      const std::string target = "(images/" + std::string(name) + "/" + picture.filename().string();
      EXPECT_NE(page.find(target + ")"), std::string::npos) << target;
      EXPECT_LT(fs::file_size(picture), 100'000u) << picture;
    }
  }
}

}  // namespace
