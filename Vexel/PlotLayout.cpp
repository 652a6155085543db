#include <AppKit/NSLayoutConstraint.h>
#include <Foundation/FatalError.h>
#include <Vexel/Vexel.h>

namespace vexel {

namespace {

constexpr float kConstraintPriority = 750;
constexpr float kCompressionResistance = 250;

CGFloat element(const std::vector<CGFloat>& padding, std::size_t index) {
  if (index >= padding.size()) fatalError("Vexel.format: a padding needs four elements");
  return padding[index];
}

/// Height of a band, counted from the bottom.
CGFloat bandHeight(int index, int count, CGFloat hostHeight, CGFloat paddingTop,
                   CGFloat paddingBottom) {
  const CGFloat height = (hostHeight - paddingTop - paddingBottom) / count;
  // Deliberate: a single band takes the bottom padding only, and the top padding stays empty.
  if (index == 0) return paddingBottom + height;
  return index == count - 1 ? paddingTop + height : height;
}

}  // namespace

void Vexel::setViews(int count, CGFloat paddingTop, CGFloat paddingBottom) {
  removeViews();
  const auto host = plotView();
  if (!host) return;
  if (count < 0) fatalError("Vexel.setViews: a negative number of views");
  if (count == 0) return;

  const CGFloat hostHeight = host->bounds().size.height;
  CGFloat stackHeight = 0;
  for (int index = 0; index < count; ++index) {
    const CGFloat height = bandHeight(index, count, hostHeight, paddingTop, paddingBottom);
    stackHeight += height;
    const auto band = std::make_shared<CPTGraphHostingView>();
    host->addSubview(band);
    hostingViews().push_back(band);
    band->setAutoresizesSubviews(true);
    band->setTranslatesAutoresizingMaskIntoConstraints(false);
    for (const auto orientation :
         {NSLayoutConstraintOrientation::vertical, NSLayoutConstraintOrientation::horizontal})
      band->setContentCompressionResistancePriority(kCompressionResistance, orientation);

    const std::string name = "hostingView" + std::to_string(index);
    const auto pin = [&](const char* suffix, NSLayoutAttribute attribute,
                         NSLayoutAttribute hostAttribute, CGFloat multiplier) {
      const auto constraint = NSLayoutConstraint::constraint({
          .firstItem = *band,
          .firstAttribute = attribute,
          .relation = NSLayoutRelation::equal,
          .secondItem = host.get(),
          .secondAttribute = hostAttribute,
          .multiplier = multiplier,
          .constant = 0,
      });
      constraint->setPriority(kConstraintPriority);
      constraint->setIdentifier(name + suffix);
      host->addConstraint(constraint);
      viewConstraints()[name + suffix] = constraint;
    };
    // At the very top there is nothing to take a part of: the top edges are pinned together.
    const CGFloat top = 1 - stackHeight / hostHeight;
    if (top > 0)
      pin("TopMarginConstraint", NSLayoutAttribute::top, NSLayoutAttribute::bottom, top);
    else
      pin("TopMarginConstraint", NSLayoutAttribute::top, NSLayoutAttribute::top, 1);
    pin("LeftMarginConstraint", NSLayoutAttribute::left, NSLayoutAttribute::left, 1);
    pin("HeightConstraint", NSLayoutAttribute::height, NSLayoutAttribute::height,
        height / hostHeight);
    pin("WidthConstraint", NSLayoutAttribute::width, NSLayoutAttribute::width, 1);
  }
}

void Vexel::removeViews() {
  const auto bands = hostingViews();
  for (const auto& band : bands) {
    band->setHostedGraph(nullptr);
    cleanRemoveFromSuperview(band);
  }
  hostingViews() = {};
  graphs() = {};
}

void Vexel::cleanRemoveFromSuperview(const std::shared_ptr<NSView>& view) {
  if (!view) return;
  const auto superview = view->superview();
  if (!superview) return;
  const auto constraints = superview->constraints();
  for (const auto& constraint : constraints) {
    if (constraint->firstItem() != view.get() && constraint->secondItem() != view.get()) continue;
    superview->removeConstraint(*constraint);
    if (constraint->identifier()) viewConstraints().erase(*constraint->identifier());
  }
  view->removeFromSuperview();
}

std::shared_ptr<CPTXYGraph> Vexel::format(const std::shared_ptr<CPTGraphHostingView>& view,
                                          const std::vector<CGFloat>& graphPadding,
                                          const std::vector<CGFloat>& frameLayerPadding) {
  if (!view) return nullptr;
  auto graph = std::make_shared<CPTXYGraph>(view->bounds());
  graph->applyTheme(theme().cpTheme());
  if (graph->plotAreaFrame() && graph->plotAreaFrame()->plotArea())
    graph->plotAreaFrame()->plotArea()->setDelegate(dynamic_cast<CALayerDelegate*>(this));
  view->setHostedGraph(graph);

  // Deliberate: the two paddings are read in different orders.
  graph->setPaddingLeft(element(graphPadding, 0));
  graph->setPaddingRight(element(graphPadding, 1));
  graph->setPaddingTop(element(graphPadding, 2));
  graph->setPaddingBottom(element(graphPadding, 3));

  const auto frame = graph->plotAreaFrame();
  if (!frame) return nullptr;
  frame->setBorderLineStyle(std::nullopt);
  frame->setCornerRadius(0);
  frame->setMasksToBorder(false);
  frame->setPaddingLeft(element(frameLayerPadding, 0));
  frame->setPaddingTop(element(frameLayerPadding, 1));
  frame->setPaddingRight(element(frameLayerPadding, 2));
  frame->setPaddingBottom(element(frameLayerPadding, 3));
  return graph;
}

}  // namespace vexel
