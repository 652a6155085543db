#pragma once

#include <optional>
#include <string>
#include <vector>

#include <CoreGraphics/CGSize.h>
#include <PlotTheme/PlotTheme.h>

namespace explorer {

/// What the first window shows.
struct WindowOptions {
  /// Absent: the sample.
  std::optional<std::string> file = {};
  std::optional<std::string> timeName = {};
  std::vector<std::string> bands = {};
  std::optional<std::string> colorName = {};
  vexel::PlotTheme theme = vexel::PlotTheme::white;
  /// Of the figure, in points.
  vexel::CGSize size = {};
};

/// Whether the program has been built with windows and there is a display to show them on.
bool canShowWindows();

/// Shows a window and returns the exit code when the last one has been closed.
int runWindows(int argc, char** argv, const WindowOptions& options);

}  // namespace explorer
