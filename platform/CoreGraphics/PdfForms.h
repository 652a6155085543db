#pragma once

#include <string>
#include <vector>

#include <CoreGraphics/CGSize.h>

#include "CairoHandles.h"

namespace vexel {

/// Page content of our own inside a PDF file that Cairo writes. Cairo paints an image that stands
/// in for it; in the finished file its object becomes a form with that content.
class PdfForms {
 public:
  explicit PdfForms(CGSize page) : page_(page) {}

  /// The name by which content may invoke an object that holds `operators`; equal ones are one.
  std::string shape(const std::string& operators);
  /// The name by which content may set the opacity of filling and stroking.
  std::string opacity(double fill, double stroke);

  /// An image of one pixel. Painted over the whole page, it shows `content`: operators in points
  /// with y up.
  CairoSurfaceHandle standInFor(std::string content);

  /// The file with the content in it. Throws CGContextError when it is not built as known.
  std::string insertedInto(const std::string& pdf) const;

 private:
  std::string resources(std::size_t firstShape) const;

  CGSize page_;
  std::vector<std::string> shapes_;
  std::vector<std::string> opacities_;
  std::vector<std::string> contents_;
};

}  // namespace vexel
