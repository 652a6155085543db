#pragma once

#include <cstddef>
#include <vector>

#include <AppKit/NSLayoutRelation.h>

namespace vexel {

/// A coefficient and the variable it multiplies.
struct LayoutTerm {
  std::size_t variable;
  double coefficient;
};

/// Solves linear conditions of different strengths. Conditions of a higher strength are met, as
/// far as they can be, before any of a lower strength counts; within one strength the sum of the
/// absolute deviations is smallest. The same input gives the same output.
///
/// A simplex method on a tableau that begins with direct substitution: an equation that fixes a
/// variable costs no pivot.
class LayoutSolver {
 public:
  /// Strengths that constraints may have; any finite value in between or below is a strength of
  /// its own. Required conditions are ranked among themselves by their order of addition, so
  /// that of contradictory ones the earlier are met. Axioms are stronger than all others.
  static constexpr double kRequired = 1000;
  static constexpr double kAxiom = 2000;

  /// A new variable; its number. It has the value `present` when nothing bears on it.
  std::size_t addVariable(double present);

  /// Sum of terms, relation, constant. Terms of the same variable add up. A condition that speaks
  /// of no variable, or has a number that is not finite, is ignored.
  void addConstraint(std::vector<LayoutTerm> terms, NSLayoutRelation relation, double constant,
                     double strength);

  /// The value of every variable. Variables whose conditions are out of proportion with what
  /// doubles can tell apart keep their present values.
  std::vector<double> solve() const;

 private:
  struct Constraint {
    std::vector<LayoutTerm> terms;
    NSLayoutRelation relation;
    double constant;
    double strength;
  };

  std::vector<double> present_;
  std::vector<Constraint> constraints_;
};

}  // namespace vexel
