#include <Vexel/FigureExport.h>

#include <string>

#include "Figures.h"

// Writes the pictures of the gallery into the working directory.
int main() {
  const struct {
    const char* name;
    gallery::Sheet (*make)();
  } figures[] = {
      {"annotations", gallery::annotations},
      {"bands", gallery::bands},
      {"bars", gallery::bars},
      {"colours", gallery::colours},
      {"histogram", gallery::histogram},
      {"lines", gallery::lines},
      {"logarithms", gallery::logarithms},
      {"markers", gallery::markers},
      {"million", gallery::million},
      {"right-axis", gallery::rightAxis},
      {"steps", gallery::steps},
      {"symbols", gallery::symbols},
      {"theme-black", gallery::themeBlack},
      {"theme-white", gallery::themeWhite},
      {"time-axes", gallery::timeAxes},
  };
  for (const auto& figure : figures)
    vexel::exportFigure(*figure.make().view, std::string(figure.name) + ".png", 1.5);
}
