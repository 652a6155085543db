#pragma once

#include <memory>

#include <CoreGraphics/CGImage.h>
#include <CoreGraphics/CGSize.h>
#include <Foundation/VexelAPI.h>

namespace vexel {

/// A bitmap and the size in points at which it is meant to be shown. An immutable value; copies
/// share the bitmap.
class VEXEL_API NSImage {
 public:
  /// The bitmap may be null (the image draws nothing); its size in pixels does not matter here.
  NSImage(std::shared_ptr<const CGImage> cgImage, CGSize size);

  /// As they were given.
  const std::shared_ptr<const CGImage>& cgImage() const { return cgImage_; }
  CGSize size() const { return size_; }

  /// The same size and the same bitmap, or two of the same layout and bytes.
  friend bool operator==(const NSImage& a, const NSImage& b);

 private:
  std::shared_ptr<const CGImage> cgImage_;
  CGSize size_;
};

}  // namespace vexel
