#pragma once

#include <AppKit/NSView.h>
#include <CoreGraphics/CGBitmapContext.h>
#include <CoreGraphics/CGDocumentContext.h>

#include <memory>
#include <string>

#include "FiniteContext.h"
#include "FuzzInput.h"
#include "Require.h"

namespace vexel {

/// Sides of figures: mostly a small one, now and then any number.
inline CGFloat side(FuzzInput& input) {
  return input.choice(8) != 0 ? 20 + input.byte() : input.number();
}
inline CGSize figureSize(FuzzInput& input) {
  const CGFloat width = side(input);
  return {width, side(input)};
}

/// Draws the view into a small bitmap and, as the input says, onto the other surfaces.
inline void drawEverywhere(NSView& view, FuzzInput& input) {
  static const std::unique_ptr<CGBitmapContext> bitmap = CGBitmapContext::create({160, 120}, 1);
  view.display(*bitmap);
  switch (input.choice(8)) {
    case 0: {
      FiniteContext context;
      view.display(context);
      break;
    }
    case 1:
    case 2: {
      const auto format =
          input.flag() ? CGDocumentContext::Format::pdf : CGDocumentContext::Format::svg;
      const auto document = CGDocumentContext::create(format, {160, 120});
      view.display(*document);
      require(!document->finish().empty(), "a document has content");
      break;
    }
    case 3: {
      const double backingScale = 0.5 + input.byte() / 64.0;
      const auto other = CGBitmapContext::create({80, 60}, backingScale);
      view.displayRect({{input.points(), input.points()}, {input.points(), input.points()}},
                       *other);
      break;
    }
    default:
      break;
  }
}

}  // namespace vexel
