#pragma once

#include <filesystem>
#include <stdexcept>
#include <string>

#include <AppKit/NSView.h>
#include <Foundation/VexelAPI.h>

namespace vexel {

/// A figure that cannot be written: the file's type is unknown, its place cannot be written to or
/// has no room, the surface cannot be made, or memory ran out on the way. The text names the file.
/// What was there before is still there, whole, and no other file is left behind; the figure can be
/// shown and exported again.
class VEXEL_API FigureExportError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// Draws a view with all its subviews at its present size and writes it as the file's extension
/// says: .png at one pixel per point, .pdf or .svg. A file of the name is replaced as a whole, or
/// not at all. Links are followed, and something that is no plain file, like a pipe, is written to;
/// a pipe that nobody reads is an error. Equal figures give equal bytes. What needed display on the
/// screen still does. Throws FigureExportError; what a data source or a delegate throws passes
/// through, and leaves files and figure in the same state.
VEXEL_API void exportFigure(NSView& view, const std::filesystem::path& file);

/// The same with so many pixels per point in a .png; the vector formats do not use it.
VEXEL_API void exportFigure(NSView& view, const std::filesystem::path& file, CGFloat backingScale);

/// What a file would hold that is called so; only the extension of `name` counts. Throws
/// FigureExportError.
VEXEL_API std::string figureData(NSView& view, const std::filesystem::path& name,
                                 CGFloat backingScale);

}  // namespace vexel
