#pragma once

#include <CoreGraphics/CGBitmapContext.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "pictures/Picture.h"

namespace vexel {

/// Pictures that were looked at and kept, as `<name>.png` in a folder.
struct ReferencePictures {
  std::filesystem::path folder;
  /// Where `<name>-wanted.png`, `<name>-got.png` and `<name>-difference.png` go when a picture is
  /// not the one that is kept.
  std::filesystem::path failures;
  /// Pictures are kept as they are drawn, whatever was kept before.
  bool renews = false;

  /// Whether what was drawn has exactly the pixels of the picture kept under that name. If not, the
  /// result names the pictures that show why.
  testing::AssertionResult show(const Picture& drawn, const std::string& name) const;
};

/// The pictures of a folder; failures go to the build tree. With VEXEL_RENEW_REFERENCES=1 in the
/// environment they are renewed, to be looked at before they are committed.
ReferencePictures keptIn(const std::filesystem::path& folder);

/// Compares with those of tests/references.
testing::AssertionResult equalsReference(CGBitmapContext& drawn, const std::string& name);

}  // namespace vexel
