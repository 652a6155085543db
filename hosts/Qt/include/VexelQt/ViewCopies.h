#pragma once

#include <AppKit/NSView.h>
#include <Foundation/VexelAPI.h>

#include <QByteArray>
#include <QImage>
#include <QMimeData>
#include <QPageLayout>
#include <QPagedPaintDevice>
#include <cstddef>
#include <memory>

// Copies of what a view shows with all its subviews at its present size, in the forms that Qt has
// for images, the clipboard and pages. PlotWidget offers them for its own view.
//
// They may be called on any thread, for views of that thread: a program whose figures take long
// makes another figure of the same data on a thread of its own, and copies that while its windows
// go on.
//
// What views throw passes through; what they had marked for display is still marked then.

namespace vexel {

/// At so many pixels per point, transparent where no view draws. Null when the view has no area or
/// the image would be too large for memory.
VEXEL_API QImage imageOfView(NSView& view, qreal pixelsPerPoint);

/// A copy with more symbols is no drawing but an image alone: drawings of so many take some 50 ms
/// and 12 MB.
inline constexpr std::size_t kMostCopiedSymbols = 100'000;
/// What a copy gives others to choose from: an image, and PDF and SVG unless there are more than
/// kMostCopiedSymbols symbols. What cannot be made is missing. Made on another thread than that of
/// the application it has to be moved to that one before it goes onto the clipboard.
VEXEL_API std::unique_ptr<QMimeData> mimeDataOfView(NSView& view, qreal pixelsPerPoint);

/// Prints one page: the view centred at the top inside the margins in its own size (a point is 1/72
/// inch), or reduced to fit: as an image at the resolution of the device, or the highest that
/// memory allows. That suits printers; for a file there is pdfPageOfView(). False when it could not
/// be printed. Nothing is sent to the device before the view has been drawn.
VEXEL_API bool printView(NSView& view, QPagedPaintDevice& device);
/// The same page as a PDF document in which lines, symbols and text remain such. Empty when the
/// view has no area, the page has no size that a PDF document can have, or memory ran out.
VEXEL_API QByteArray pdfPageOfView(NSView& view, const QPageLayout& layout);

}  // namespace vexel
