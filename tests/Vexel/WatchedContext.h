#pragma once

#include <CoreGraphics/CGRecordingContext.h>

#include <string>

namespace vexel {

/// Passes every call on to another context and writes it down as a CGRecordingContext does.
class WatchedContext : public CGContext {
 public:
  explicit WatchedContext(CGContext& target) : target_(target) {}

  const std::string& text() const { return recording_.text(); }

  void saveState() override {
    recording_.saveState();
    target_.saveState();
  }
  void restoreState() override {
    recording_.restoreState();
    target_.restoreState();
  }
  void concatenate(const CGAffineTransform& transform) override {
    recording_.concatenate(transform);
    target_.concatenate(transform);
  }
  using CGContext::clip;
  void clip(const CGPath& path) override {
    recording_.clip(path);
    target_.clip(path);
  }
  void stroke(const CGPath& path, const CGStrokeStyle& style) override {
    recording_.stroke(path, style);
    target_.stroke(path, style);
  }
  void fill(const CGPath& path, const CGColor& color) override {
    recording_.fill(path, color);
    target_.fill(path, color);
  }
  void fillAligned(const CGRect& rect, const CGColor& color) override {
    recording_.fillAligned(rect, color);
    target_.fillAligned(rect, color);
  }
  void drawImage(const CGImage& image, const CGRect& rect) override {
    recording_.drawImage(image, rect);
    target_.drawImage(image, rect);
  }
  void drawText(const CGText& text, CGPoint origin) override {
    recording_.drawText(text, origin);
    target_.drawText(text, origin);
  }
  void drawSymbols(const CGPath& symbol, const CGColor* fillColor, const CGStrokeStyle* strokeStyle,
                   std::span<const CGPoint> centers) override {
    recording_.drawSymbols(symbol, fillColor, strokeStyle, centers);
    target_.drawSymbols(symbol, fillColor, strokeStyle, centers);
  }
  CGSize measure(const CGText& text) override { return target_.measure(text); }

 private:
  CGContext& target_;
  CGRecordingContext recording_;
};

}  // namespace vexel
