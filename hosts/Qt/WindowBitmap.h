#pragma once

#include <AppKit/NSWindow.h>
#include <CoreGraphics/CGBitmapContext.h>
#include <CoreGraphics/CGColor.h>

#include <QImage>
#include <chrono>
#include <functional>
#include <limits>
#include <memory>
#include <optional>
#include <span>
#include <string>

namespace vexel {

/// The pixels of a window, kept from one display to the next.
class WindowBitmap {
 public:
  /// Draws parts of the window that are marked for display, one after the other from the top, until
  /// a frame's time is over, and in pieces where a part would take much longer: what is left then
  /// stays marked, shows what it did before, and comes first the next time. At another size or
  /// ratio all of the window counts as marked. Parts that cannot be drawn stay marked too, and keep
  /// no other one from being drawn. False when there is nothing to show: no area, or no memory.
  bool update(NSWindow& window, qreal ratio, const CGColor& background);

  /// Whether no part was left for the next time.
  bool isComplete() const { return isComplete_; }
  /// What a view threw the last time; absent when none did.
  const std::optional<std::string>& failure() const { return failure_; }

  /// The pixels themselves, not a copy: valid until the next update.
  QImage image() const;

 private:
  /// Drawn in one go, in window coordinates.
  using Strip = CGRect;

  using Seconds = std::chrono::duration<double>;

  std::vector<Strip> strips(NSWindow& window) const;
  bool isWide(const Strip& strip) const;
  std::vector<CGFloat> cutInPieces(const std::vector<CGFloat>& edges) const;
  void draw(const Strip& strip, NSWindow& window, const CGColor& background);
  bool attempt(const std::function<void()>& act);
  void stretch(CGBitmapContext& former, std::span<const Strip> strips);

  std::unique_ptr<CGBitmapContext> context_;
  CGSize size_;
  bool isComplete_ = true;
  std::optional<std::string> failure_;
  /// What was drawn last stands above this when something was left.
  CGFloat goOnBelow_ = std::numeric_limits<CGFloat>::infinity();
  /// What a point of height takes where the window is drawn across: at most since all of it was
  /// drawn the last time, and before. At first that may be long.
  Seconds slowest_{0}, timePerPoint_{0.001};
};

}  // namespace vexel
