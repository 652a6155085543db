#pragma once

#include <AppKit/NSView.h>
#include <CoreGraphics/CGBitmapContext.h>
#include <CoreGraphics/CGDocumentContext.h>
#include <CoreGraphics/CGRecordingContext.h>

#include <algorithm>
#include <memory>
#include <string>

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

/// Whether a word of the recorded calls, texts left out, is no finite number.
inline bool holdsNoNumber(const std::string& calls) {
  const auto isWord = [&](std::size_t at, std::size_t size) {
    const auto isEnd = [](char c) { return c == ' ' || c == '\n' || c == '-' || c == ':'; };
    return (at == 0 || isEnd(calls[at - 1])) &&
           (at + size == calls.size() || isEnd(calls[at + size]));
  };
  for (const std::string word : {"nan", "inf"})
    for (auto at = calls.find(word); at != calls.npos; at = calls.find(word, at + 1)) {
      if (!isWord(at, word.size())) continue;
      const auto line = calls.rfind('\n', at) + 1;
      if (calls.compare(calls.find_first_not_of(' ', line), 5, "text ") != 0) return true;
    }
  return false;
}

/// Draws the view into a small bitmap and, as the input says, onto the other surfaces.
inline void drawEverywhere(NSView& view, FuzzInput& input) {
  static const std::unique_ptr<CGBitmapContext> bitmap = CGBitmapContext::create({160, 120}, 1);
  view.display(*bitmap);
  switch (input.choice(8)) {
    case 0: {
      CGRecordingContext recording;
      view.display(recording);
      if (holdsNoNumber(recording.text())) std::fputs(recording.text().c_str(), stderr);
      require(!holdsNoNumber(recording.text()), "recorded calls have finite coordinates");
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
