#include <AppKit/NSImage.h>

#include <utility>

namespace vexel {

NSImage::NSImage(std::shared_ptr<const CGImage> cgImage, CGSize size)
    : cgImage_(std::move(cgImage)), size_(size) {}

bool operator==(const NSImage& a, const NSImage& b) {
  if (a.size_ != b.size_) return false;
  if (a.cgImage_ == b.cgImage_) return true;
  return a.cgImage_ && b.cgImage_ && a.cgImage_->layout() == b.cgImage_->layout() &&
         a.cgImage_->bytes() == b.cgImage_->bytes();
}

}  // namespace vexel
