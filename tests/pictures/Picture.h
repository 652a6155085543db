#pragma once

#include <CoreGraphics/CGBitmapContext.h>

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace vexel {

/// Premultiplied pixels, rows from top to bottom.
struct Picture {
  int width = 0;
  int height = 0;
  std::vector<std::uint32_t> pixels;

  static Picture of(CGBitmapContext& context);
  /// Absent when it is no PNG file.
  static std::optional<Picture> fromPng(const std::string& file);
  std::string png() const;

  friend bool operator==(const Picture&, const Picture&) = default;
};

/// As large as both together: black where they differ or only one has a pixel, white elsewhere.
Picture difference(const Picture& a, const Picture& b);

}  // namespace vexel
