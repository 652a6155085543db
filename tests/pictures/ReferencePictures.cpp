#include "pictures/ReferencePictures.h"

#include <cstdlib>
#include <fstream>
#include <iterator>
#include <string_view>

#include "pictures/Picture.h"

namespace vexel {

namespace {

std::string contents(const std::filesystem::path& file) {
  std::ifstream stream(file, std::ios::binary);
  return {std::istreambuf_iterator<char>(stream), {}};
}

void write(const std::filesystem::path& file, const std::string& bytes) {
  std::filesystem::create_directories(file.parent_path());
  std::ofstream(file, std::ios::binary) << bytes;
}

}  // namespace

testing::AssertionResult ReferencePictures::show(const Picture& drawn,
                                                 const std::string& name) const {
  const std::filesystem::path file = folder / (name + ".png");
  auto wanted = Picture::fromPng(contents(file));
  if (renews && wanted != drawn) {
    write(file, drawn.png());
    wanted = Picture::fromPng(contents(file));
  }
  if (wanted == drawn) return testing::AssertionSuccess();

  const auto pathOf = [&](const char* what) { return failures / (name + "-" + what + ".png"); };
  write(pathOf("got"), drawn.png());
  auto failure = testing::AssertionFailure() << "got " << pathOf("got");
  if (!wanted) return failure << ", but " << file << " is no picture";
  write(pathOf("wanted"), wanted->png());
  write(pathOf("difference"), difference(*wanted, drawn).png());
  return failure << "\nwanted " << pathOf("wanted") << "\ndifference " << pathOf("difference");
}

ReferencePictures keptIn(const std::filesystem::path& folder) {
  const char* const renew = std::getenv("VEXEL_RENEW_REFERENCES");
  return {.folder = folder,
          .failures = VEXEL_REFERENCE_FAILURES,
          .renews = renew && std::string_view(renew) == "1"};
}

testing::AssertionResult equalsReference(CGBitmapContext& drawn, const std::string& name) {
  return keptIn(VEXEL_REFERENCES).show(Picture::of(drawn), name);
}

}  // namespace vexel
