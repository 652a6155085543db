#pragma once

#include <cairo.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <functional>
#include <limits>
#include <memory>
#include <string>
#include <vector>

#include <CoreGraphics/CGBitmapContext.h>

namespace vexel {

inline constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
inline constexpr double kInfinity = std::numeric_limits<double>::infinity();

inline constexpr CGColor kBlack = CGColor::genericGray(0);
inline constexpr CGColor kWhite = CGColor::genericGray(1);
inline constexpr CGColor kRed = CGColor::genericRGB(1, 0, 0);

inline constexpr std::uint32_t kBlackPixel = 0xff000000u;
inline constexpr std::uint32_t kWhitePixel = 0xffffffffu;
inline constexpr std::uint32_t kRedPixel = 0xffff0000u;

using Bitmap = std::unique_ptr<CGBitmapContext>;

inline Bitmap transparentBitmap(CGFloat width, CGFloat height, CGFloat scale = 1) {
  return CGBitmapContext::create({width, height}, scale);
}

inline Bitmap whiteBitmap(CGFloat width, CGFloat height, CGFloat scale = 1) {
  Bitmap bitmap = transparentBitmap(width, height, scale);
  bitmap->fillAligned(CGRect::make(-1, -1, width + 2, height + 2), kWhite);
  return bitmap;
}

/// Column from the left and row from the top, in pixels.
inline std::uint32_t pixel(CGBitmapContext& bitmap, int column, int row) {
  return bitmap.pixels()[static_cast<std::size_t>(row * bitmap.pixelWidth() + column)];
}

inline std::vector<std::uint32_t> pixelsOf(CGBitmapContext& bitmap) {
  const auto pixels = bitmap.pixels();
  return {pixels.begin(), pixels.end()};
}

/// The greatest difference of a channel, 0 to 255; 256 for different sizes.
inline int maximumDifference(CGBitmapContext& a, CGBitmapContext& b) {
  const auto left = a.pixels(), right = b.pixels();
  if (left.size() != right.size()) return 256;
  int greatest = 0;
  for (std::size_t i = 0; i < left.size(); ++i)
    for (int shift = 0; shift < 32; shift += 8)
      greatest = std::max(greatest, std::abs(static_cast<int>(left[i] >> shift & 255) -
                                             static_cast<int>(right[i] >> shift & 255)));
  return greatest;
}

/// How many pixels are not white.
inline std::ptrdiff_t inkedPixels(CGBitmapContext& bitmap) {
  const auto pixels = bitmap.pixels();
  return std::ssize(pixels) - std::ranges::count(pixels, kWhitePixel);
}

struct PixelBounds {
  int left, top, right, bottom;
  friend bool operator==(const PixelBounds&, const PixelBounds&) = default;
};

/// The pixels around everything that is not white; the last ones are excluded.
inline PixelBounds inkBounds(CGBitmapContext& bitmap) {
  PixelBounds bounds{bitmap.pixelWidth(), bitmap.pixelHeight(), 0, 0};
  for (int y = 0; y < bitmap.pixelHeight(); ++y) {
    for (int x = 0; x < bitmap.pixelWidth(); ++x) {
      if (pixel(bitmap, x, y) == kWhitePixel) continue;
      bounds = {std::min(bounds.left, x), std::min(bounds.top, y), std::max(bounds.right, x + 1),
                std::max(bounds.bottom, y + 1)};
    }
  }
  return bounds;
}

inline CGMutablePath linePath(CGPoint from, CGPoint to) {
  CGMutablePath path;
  path.move(from);
  path.addLine(to);
  return path;
}

inline CGMutablePath rectPath(CGFloat x, CGFloat y, CGFloat width, CGFloat height) {
  CGMutablePath path;
  path.addRect(CGRect::make(x, y, width, height));
  return path;
}

inline CGMutablePath ellipsePath(CGFloat x, CGFloat y, CGFloat width, CGFloat height) {
  CGMutablePath path;
  path.addEllipse(CGRect::make(x, y, width, height));
  return path;
}

/// An image of opaque rows from top to bottom, one pixel wide.
inline std::shared_ptr<const CGImage> columnImage(const std::vector<std::uint32_t>& rgb,
                                                  bool interpolates = false) {
  std::vector<std::uint8_t> bytes;
  for (const std::uint32_t color : rgb)
    for (int shift = 24; shift >= 0; shift -= 8)
      bytes.push_back(static_cast<std::uint8_t>(color >> shift));
  CGImageLayout layout;
  layout.width = 1;
  layout.height = rgb.size();
  layout.bytesPerRow = 4;
  layout.interpolates = interpolates;
  return CGImage::create(layout, bytes);
}

struct DecodedPng {
  int width = 0;
  int height = 0;
  std::vector<std::uint32_t> pixels;
};

inline DecodedPng decodedPng(const std::string& file) {
  struct Reader {
    const std::string& file;
    std::size_t at = 0;
  } reader{file};
  const auto read = [](void* closure, unsigned char* data, unsigned int length) {
    auto& from = *static_cast<Reader*>(closure);
    if (from.file.size() - from.at < length) return CAIRO_STATUS_READ_ERROR;
    std::memcpy(data, from.file.data() + from.at, length);
    from.at += length;
    return CAIRO_STATUS_SUCCESS;
  };
  const std::unique_ptr<cairo_surface_t, decltype(&cairo_surface_destroy)> surface(
      cairo_image_surface_create_from_png_stream(read, &reader), &cairo_surface_destroy);
  DecodedPng png;
  if (cairo_surface_status(surface.get()) != CAIRO_STATUS_SUCCESS) return png;
  png.width = cairo_image_surface_get_width(surface.get());
  png.height = cairo_image_surface_get_height(surface.get());
  const unsigned char* data = cairo_image_surface_get_data(surface.get());
  const int stride = cairo_image_surface_get_stride(surface.get());
  for (int y = 0; y < png.height; ++y) {
    const auto* row = reinterpret_cast<const std::uint32_t*>(data + y * stride);
    png.pixels.insert(png.pixels.end(), row, row + png.width);
  }
  return png;
}

}  // namespace vexel
