#pragma once

#include <Vexel/Adopter.h>
#include <Vexel/PlotView.h>

#include <memory>

namespace gallery {

/// A view and the figure that it shows.
struct Sheet {
  std::shared_ptr<vexel::PlotView> view;
  std::shared_ptr<vexel::Vexel> figure;
};

template <class Figure>
Sheet sheetOf(vexel::CGSize size, vexel::PlotTheme theme = vexel::PlotTheme::white) {
  const auto view = std::make_shared<vexel::PlotView>(vexel::CGRect{{}, size});
  return {view, vexel::makePlot<Figure>(view, theme)};
}

Sheet annotations();
Sheet bands();
Sheet bars();
Sheet colours();
Sheet histogram();
Sheet lines();
Sheet logarithms();
Sheet markers();
Sheet million();
Sheet rightAxis();
Sheet steps();
Sheet symbols();
Sheet themeBlack();
Sheet themeWhite();
Sheet timeAxes();

}  // namespace gallery
