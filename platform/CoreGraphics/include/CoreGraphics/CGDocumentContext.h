#pragma once

#include <memory>
#include <string>

#include <CoreGraphics/CGContext.h>
#include <CoreGraphics/CGContextError.h>
#include <Foundation/VexelAPI.h>

namespace vexel {

/// A page of a vector format, of one size in points. Text stays text: a PDF embeds its fonts, an
/// SVG names them and places each line by its middle. Equal drawing calls give equal bytes: no
/// dates, no counters of the process.
class VEXEL_API CGDocumentContext : public CGContext {
 public:
  /// The file format.
  enum class Format { pdf, svg };

  /// Longest side in points: what every reader of PDF takes.
  static constexpr CGFloat kMaximumSide = 14400;

  /// An empty page. Throws CGContextError unless both sides are above 0 and within kMaximumSide.
  static std::unique_ptr<CGDocumentContext> create(Format format, CGSize size);

  /// Ends the page and gives the bytes of the file. Later drawing calls do nothing. Throws
  /// CGContextError when the drawing library reports a failure.
  virtual std::string finish() = 0;

  bool isDrawnOnce() const override { return true; }
};

}  // namespace vexel
