#include <CorePlot/CPTPlotSymbol.h>

#include <algorithm>
#include <cmath>
#include <numbers>
#include <vector>

namespace vexel {

namespace {

// Inner to outer radius of a five-pointed star whose edges lie on straight lines.
constexpr double kStarInnerRadius = 0.381966011250105;
// Corners of shapes reach beyond the outline by this many times half its width at most, unless
// the style allows more.
constexpr CGFloat kMiterReach = 10;

/// A closed polygon in the ellipse of the given size around (0, 0), its first corner on top, the
/// odd corners drawn in to `innerRadius` of the ellipse.
CGMutablePath polygon(CGSize size, int corners, double innerRadius = 1) {
  CGMutablePath path;
  for (int i = 0; i < corners; ++i) {
    const double angle = std::numbers::pi / 2 + 2 * std::numbers::pi * i / corners;
    const double radius = i % 2 == 0 ? 0.5 : 0.5 * innerRadius;
    const CGPoint corner{radius * size.width * std::cos(angle),
                         radius * size.height * std::sin(angle)};
    i == 0 ? path.move(corner) : path.addLine(corner);
  }
  path.closeSubpath();
  return path;
}

void addStroke(CGMutablePath& path, CGPoint from, CGPoint to) {
  path.move(from);
  path.addLine(to);
}

/// The shape of a symbol type around (0, 0).
CGPath shape(CPTPlotSymbolType type, CGSize size, const std::optional<CGPath>& custom) {
  const CGFloat x = size.width / 2;
  const CGFloat y = size.height / 2;
  const CGRect box = CGRect::make(-x, -y, size.width, size.height);
  CGMutablePath path;
  switch (type) {
    case CPTPlotSymbolType::none:
      break;
    case CPTPlotSymbolType::rectangle:
      path.addRect(box);
      break;
    case CPTPlotSymbolType::ellipse:
      path.addEllipse(box);
      break;
    case CPTPlotSymbolType::diamond:
      return polygon(size, 4);
    case CPTPlotSymbolType::triangle: {
      const CGPoint corners[] = {{0, y}, {-x, -y}, {x, -y}};
      path.addLines(corners);
      path.closeSubpath();
      break;
    }
    case CPTPlotSymbolType::star:
      return polygon(size, 10, kStarInnerRadius);
    case CPTPlotSymbolType::pentagon:
      return polygon(size, 5);
    case CPTPlotSymbolType::hexagon:
      return polygon(size, 6);
    case CPTPlotSymbolType::cross:
      addStroke(path, {-x, -y}, {x, y});
      addStroke(path, {-x, y}, {x, -y});
      break;
    case CPTPlotSymbolType::plus:
      addStroke(path, {-x, 0}, {x, 0});
      addStroke(path, {0, -y}, {0, y});
      break;
    case CPTPlotSymbolType::dash:
      addStroke(path, {-x, 0}, {x, 0});
      break;
    case CPTPlotSymbolType::snow: {
      const CGFloat dx = x * std::sqrt(3.0) / 2;
      addStroke(path, {0, -y}, {0, y});
      addStroke(path, {-dx, -y / 2}, {dx, y / 2});
      addStroke(path, {-dx, y / 2}, {dx, -y / 2});
      break;
    }
    case CPTPlotSymbolType::custom: {
      if (!custom) break;
      const CGRect own = custom->boundingBox();
      const auto factor = [](CGFloat wanted, CGFloat present) {
        const CGFloat ratio = wanted / present;
        return present > 0 && std::isfinite(ratio) ? ratio : 1;
      };
      return custom->transformed(
          CGAffineTransform::translation(-own.midX(), -own.midY())
              .followedBy(CGAffineTransform::scale(factor(size.width, own.size.width),
                                                   factor(size.height, own.size.height))));
    }
  }
  return path;
}

bool isFinite(CGPoint p) {
  return std::isfinite(p.x) && std::isfinite(p.y);
}

bool isFinite(const CGPath& path) {
  return std::ranges::all_of(path.elements(), [](const CGPathElement& element) {
    using Type = CGPathElement::Type;
    if (element.type == Type::close) return true;
    if (!isFinite(element.point)) return false;
    return element.type != Type::curve ||
           (isFinite(element.control1) && isFinite(element.control2));
  });
}

bool isLines(CPTPlotSymbolType type) {
  return type == CPTPlotSymbolType::cross || type == CPTPlotSymbolType::plus ||
         type == CPTPlotSymbolType::dash || type == CPTPlotSymbolType::snow;
}

}  // namespace

CPTPlotSymbol CPTPlotSymbol::of(CPTPlotSymbolType type) {
  CPTPlotSymbol symbol;
  symbol.symbolType_ = type;
  return symbol;
}

CPTPlotSymbol CPTPlotSymbol::customPlotSymbol(const CGPath& path) {
  CPTPlotSymbol symbol = of(CPTPlotSymbolType::custom);
  symbol.customSymbolPath_ = path;
  return symbol;
}

CGPath CPTPlotSymbol::path() const {
  const bool hasSize = size_.width > 0 && size_.height > 0 && size_.width <= kLargestSide &&
                       size_.height <= kLargestSide;
  const CGPoint shift{(0.5 - anchorPoint_.x) * size_.width, (0.5 - anchorPoint_.y) * size_.height};
  if (!hasSize || !isFinite(shift)) return {};
  CGPath outline = shape(symbolType_, size_, customSymbolPath_)
                       .transformed(CGAffineTransform::translation(shift.x, shift.y));
  return isFinite(outline) ? outline : CGPath();
}

CGRect CPTPlotSymbol::reach() const {
  CGFloat pen = 0;
  if (lineStyle_ && lineStyle_->lineWidth > 0) {
    const CGFloat corners = std::max(kMiterReach, lineStyle_->miterLimit);
    pen = std::min(lineStyle_->lineWidth / 2 * corners, kLargestSide);
  }
  return path().boundingBox().insetBy(-pen, -pen);
}

void CPTPlotSymbol::draw(CGContext& context, std::span<const CGPoint> centers) const {
  const CGPath outline = path();
  if (outline.isEmpty() || centers.empty()) return;

  const std::optional<CPTFill> fill = isLines(symbolType_) ? std::nullopt : fill_;
  std::optional<CGStrokeStyle> stroke;
  if (lineStyle_) stroke = lineStyle_->strokeStyle();

  if (fill && fill->image()) {
    for (const CGPoint center : centers) {
      const CGSavedState state(context);
      context.translate(center.x, center.y);
      fill->fill(context, outline);
      if (stroke) context.stroke(outline, *stroke);
    }
    return;
  }
  if (!fill && !stroke) return;
  context.drawSymbols(outline, fill ? &fill->color()->cgColor() : nullptr,
                      stroke ? &*stroke : nullptr, centers);
}

void CPTPlotSymbol::draw(CGContext& context, std::span<const CPTColor> colors,
                         std::span<const std::uint32_t> colorOfCenter,
                         std::span<const CGPoint> centers) const {
  const CGPath outline = path();
  if (outline.isEmpty() || centers.empty()) return;

  const bool ofLines = isLines(symbolType_);
  std::vector<CGStrokeStyle> strokes;
  if (lineStyle_) strokes.assign(ofLines ? colors.size() : 1, lineStyle_->strokeStyle());
  std::vector<CGSymbolStyle> styles(colors.size());
  for (std::size_t i = 0; i < styles.size(); ++i) {
    const CGColor& color = colors[i].cgColor();
    if (!ofLines) styles[i].fillColor = &color;
    if (strokes.empty()) continue;
    CGStrokeStyle& stroke = strokes[ofLines ? i : 0];
    if (ofLines) stroke.color = color;
    styles[i].strokeStyle = &stroke;
  }
  context.drawStyledSymbols(outline, styles, colorOfCenter, centers);
}

}  // namespace vexel
