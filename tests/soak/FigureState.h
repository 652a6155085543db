#pragma once

#include <PlotTheme/PlotTheme.h>

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace vexel::soak {

/// What the adopter of a figure adopts.
enum class Adoption { bands, markers, colorbar, all };
constexpr int kAdoptions = 4;

inline bool hasMarkers(Adoption adoption) {
  return adoption == Adoption::markers || adoption == Adoption::all;
}
inline bool hasColorbar(Adoption adoption) {
  return adoption == Adoption::colorbar || adoption == Adoption::all;
}

enum class SeriesKind { line, dashes, steps, circles, colored, bars, marker };

struct SeriesState {
  SeriesKind kind;
  /// Of markers the name that the protocol gives them; of all others one that no other series has.
  std::string name;
  std::uint32_t seed;
  std::size_t records;
  double lineWidth = 1;
  bool isHidden = false;
};

/// Those of x count from the origin of their band.
struct RangeState {
  double lower;
  double upper;
};

/// An axis is formatted for one range and may show another since.
struct AxisState {
  RangeState formatted;
  RangeState shown;
  bool isLogarithmic = false;
};

struct NoteState {
  std::string text;
  std::vector<float> anchor;
};

struct BandState {
  /// Where x begins: at 0 or, on a time axis, at a Julian day.
  double origin = 0;
  bool isTimeAxis() const { return origin != 0; }
  AxisState x;
  AxisState y;
  /// What the axis on the right is formatted for.
  std::optional<RangeState> right = {};
  std::optional<std::string> title = {};
  /// In the order in which they were added.
  std::vector<SeriesState> series = {};
  std::vector<NoteState> notes = {};
};

/// All that tells the picture of a figure.
struct FigureState {
  Adoption adoption;
  PlotTheme theme;
  /// Bands keep their proportions from the size at which they were stacked.
  CGSize stackedAt;
  CGSize size;
  std::vector<BandState> bands;
  double verticalX = 0;
  float horizontalY = 0;
  double permanentVerticalX = 0;
  float permanentHorizontalY = 0;
};

}  // namespace vexel::soak
