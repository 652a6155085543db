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

testing::AssertionResult ReferencePictures::show(CGBitmapContext& drawn,
                                                 const std::string& name) const {
  const std::filesystem::path file = folder / (name + ".png");
  const Picture got = Picture::of(drawn);
  auto wanted = Picture::fromPng(contents(file));
  if (renews && wanted != got) {
    write(file, drawn.pngData());
    wanted = Picture::fromPng(contents(file));
  }
  if (wanted == got) return testing::AssertionSuccess();

  const auto pathOf = [&](const char* what) { return failures / (name + "-" + what + ".png"); };
  write(pathOf("got"), drawn.pngData());
  auto failure = testing::AssertionFailure() << "got " << pathOf("got");
  if (!wanted) return failure << ", but " << file << " is no picture";
  write(pathOf("wanted"), wanted->png());
  write(pathOf("difference"), difference(*wanted, got).png());
  return failure << "\nwanted " << pathOf("wanted") << "\ndifference " << pathOf("difference");
}

testing::AssertionResult equalsReference(CGBitmapContext& drawn, const std::string& name) {
  const char* const renew = std::getenv("VEXEL_RENEW_REFERENCES");
  return ReferencePictures{.folder = VEXEL_REFERENCES,
                           .failures = VEXEL_REFERENCE_FAILURES,
                           .renews = renew && std::string_view(renew) == "1"}
      .show(drawn, name);
}

}  // namespace vexel
