#pragma once

#include <AppKit/NSWindow.h>
#include <CoreGraphics/CGBitmapContext.h>
#include <CoreGraphics/CGColor.h>

#include <QImage>
#include <memory>

namespace vexel {

/// The pixels of a window, kept from one display to the next.
class WindowBitmap {
 public:
  /// Draws the parts of the window that are marked for display; all of it when size or ratio are
  /// others than the last time. False when there is nothing to show: no area, or no memory.
  bool update(NSWindow& window, qreal ratio, const CGColor& background);

  /// The pixels themselves, not a copy: valid until the next update.
  QImage image() const;

 private:
  std::unique_ptr<CGBitmapContext> context_;
  CGSize size_;
};

}  // namespace vexel
