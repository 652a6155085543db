#include <Vexel/Vexel.h>

namespace vexel {

std::optional<int> Vexel::getViewIndex(const NSEvent& event) {
  if (hostingViews().empty() || !plotView()) return std::nullopt;
  const auto superview = plotView()->superview();
  if (!superview) return std::nullopt;
  const CGFloat y = plotView()->convertPointFromView(event.locationInWindow, superview.get()).y;
  if (y < 0 || y > plotView()->bounds().size.height) return std::nullopt;

  int index = 0;
  for (const auto& band : hostingViews()) {
    const CGRect frame = band->frame();
    if (frame.origin.y <= y && y <= frame.origin.y + frame.size.height) return index;
    ++index;
  }
  return std::nullopt;
}

bool Vexel::mouseInPlotView(const NSEvent& event, const std::shared_ptr<NSView>& view) {
  if (!plotView() || !view) return false;
  const CGPoint point = plotView()->convertPointFromView(event.locationInWindow, view.get());
  const CGSize size = plotView()->frame().size;
  return 0 <= point.x && point.x <= size.width && 0 <= point.y && point.y <= size.height;
}

bool Vexel::mouseInPlotView(const NSEvent& event) {
  return plotView() && mouseInPlotView(event, plotView()->superview());
}

}  // namespace vexel
