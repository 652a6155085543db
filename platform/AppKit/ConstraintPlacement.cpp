#include "ConstraintPlacement.h"

#include <optional>
#include <unordered_map>

#include "LayoutSolver.h"

namespace vexel {

namespace {

/// Strengths, below those of all constraints, with which a view keeps what nothing else decides.
constexpr double kKeepSize = 0.5;
constexpr double kKeepOrigin = 0.25;

/// A sum of multiples of variables and a constant.
struct Expression {
  std::vector<LayoutTerm> terms;
  double constant = 0;

  void add(const Expression& other, double factor) {
    for (const auto& term : other.terms)
      terms.push_back({term.variable, factor * term.coefficient});
    constant += factor * other.constant;
  }
};

/// The parts of a frame, in the host's coordinates.
struct Box {
  Expression x, y, width, height;
};

Box fixedBox(const CGRect& frame) {
  return {
      {{}, frame.origin.x}, {{}, frame.origin.y}, {{}, frame.size.width}, {{}, frame.size.height}};
}

/// One run of the solver for one host.
class Placing {
 public:
  explicit Placing(const NSView& host) : host_(host), height_(host.bounds().size.height) {
    boxes_.emplace(&host, fixedBox({{}, host.bounds().size}));
    for (const auto& view : host.subviews()) addBox(*view);
    for (const auto& constraint : host.constraints()) add(*constraint);
    for (const auto& view : host.subviews()) {
      for (const auto& constraint : view->constraints())
        if (isAbout(*view, *constraint)) add(*constraint);
      addCompressionResistance(*view);
    }
  }

  std::vector<ConstraintPlacement> placements() const {
    const auto values = solver_.solve();
    std::vector<ConstraintPlacement> placements;
    for (const auto& view : host_.subviews()) {
      const auto place = firstVariable_.find(view.get());
      if (place == firstVariable_.end() || !place->second.isNamed) continue;
      const auto* value = &values[place->second.variable];
      placements.push_back({view, CGRect::make(value[0], value[1], value[2], value[3])});
    }
    return placements;
  }

 private:
  struct Place {
    std::size_t variable;
    bool isNamed = false;
  };

  void addBox(const NSView& view) {
    const CGRect frame = view.frame();
    if (view.translatesAutoresizingMaskIntoConstraints()) {
      boxes_.emplace(&view, fixedBox(frame));
      return;
    }
    const auto variable = [&](double present, double keepingStrength) {
      const auto number = solver_.addVariable(present);
      solver_.addConstraint({{number, 1}}, NSLayoutRelation::equal, present, keepingStrength);
      return number;
    };
    const auto size = [&](double present) {
      const auto number = variable(present, kKeepSize);
      solver_.addConstraint({{number, 1}}, NSLayoutRelation::greaterThanOrEqual, 0,
                            LayoutSolver::kAxiom);
      return number;
    };
    const auto x = variable(frame.origin.x, kKeepOrigin);
    const auto y = variable(frame.origin.y, kKeepOrigin);
    const auto width = size(frame.size.width);
    const auto height = size(frame.size.height);
    firstVariable_.emplace(&view, Place{x});
    boxes_.emplace(&view, Box{{{{x, 1}}}, {{{y, 1}}}, {{{width, 1}}}, {{{height, 1}}}});
  }

  static bool isAbout(const NSView& view, const NSLayoutConstraint& constraint) {
    return constraint.firstItem() == &view &&
           (!constraint.hasSecondItem() || constraint.secondItem() == &view);
  }

  void add(const NSLayoutConstraint& constraint) {
    auto difference = expression(constraint.firstItem(), constraint.firstAttribute());
    if (!difference) return;
    if (constraint.hasSecondItem()) {
      const auto second = expression(constraint.secondItem(), constraint.secondAttribute());
      if (!second) return;
      difference->add(*second, -constraint.multiplier());
    }
    const double constant = constraint.constant() - difference->constant;
    solver_.addConstraint(std::move(difference->terms), constraint.relation(), constant,
                          constraint.priority());
    name(constraint.firstItem());
    name(constraint.secondItem());
  }

  void addCompressionResistance(const NSView& view) {
    const auto size = view.intrinsicContentSize();
    const auto place = firstVariable_.find(&view);
    if (!size || place == firstVariable_.end()) return;
    const auto resist = [&](const Expression& length, CGFloat content,
                            NSLayoutConstraintOrientation orientation) {
      solver_.addConstraint(length.terms, NSLayoutRelation::greaterThanOrEqual, content,
                            view.contentCompressionResistancePriority(orientation));
    };
    const Box& box = boxes_.at(&view);
    resist(box.width, size->width, NSLayoutConstraintOrientation::horizontal);
    resist(box.height, size->height, NSLayoutConstraintOrientation::vertical);
    place->second.isNamed = true;
  }

  void name(const NSView* view) {
    if (const auto place = firstVariable_.find(view); place != firstVariable_.end())
      place->second.isNamed = true;
  }

  std::optional<Expression> expression(const NSView* view, NSLayoutAttribute attribute) const {
    const auto found = boxes_.find(view);
    if (found == boxes_.end()) return std::nullopt;
    const Box& box = found->second;
    Expression sum;
    switch (attribute) {
      case NSLayoutAttribute::left:
        return box.x;
      case NSLayoutAttribute::width:
        return box.width;
      case NSLayoutAttribute::height:
        return box.height;
      case NSLayoutAttribute::right:
      case NSLayoutAttribute::centerX:
        sum.add(box.x, 1);
        sum.add(box.width, attribute == NSLayoutAttribute::right ? 1 : 0.5);
        return sum;
      case NSLayoutAttribute::top:
      case NSLayoutAttribute::bottom:
      case NSLayoutAttribute::centerY:
        sum.constant = height_;
        sum.add(box.y, -1);
        if (attribute != NSLayoutAttribute::bottom)
          sum.add(box.height, attribute == NSLayoutAttribute::top ? -1 : -0.5);
        return sum;
      case NSLayoutAttribute::notAnAttribute:
        break;
    }
    return std::nullopt;
  }

  const NSView& host_;
  double height_;
  LayoutSolver solver_;
  std::unordered_map<const NSView*, Box> boxes_;
  std::unordered_map<const NSView*, Place> firstVariable_;
};

}  // namespace

std::vector<ConstraintPlacement> constraintPlacements(const NSView& host) {
  return Placing(host).placements();
}

}  // namespace vexel
