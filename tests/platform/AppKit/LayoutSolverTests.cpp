#include "LayoutSolver.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <cmath>
#include <limits>

namespace vexel {
namespace {

using testing::DoubleEq;
using testing::DoubleNear;
using testing::ElementsAre;

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr auto kEqual = NSLayoutRelation::equal;
constexpr auto kAtMost = NSLayoutRelation::lessThanOrEqual;
constexpr auto kAtLeast = NSLayoutRelation::greaterThanOrEqual;

/// A condition on x (variable 0) and y (variable 1).
struct Condition {
  double x;
  double y;
  NSLayoutRelation relation;
  double constant;
  double strength;
};

std::vector<double> solved(double x, double y, const std::vector<Condition>& conditions) {
  LayoutSolver solver;
  solver.addVariable(x);
  solver.addVariable(y);
  for (const auto& c : conditions)
    solver.addConstraint({{0, c.x}, {1, c.y}}, c.relation, c.constant, c.strength);
  return solver.solve();
}

struct SolverCase {
  const char* what;
  std::vector<Condition> conditions;
  double x;
  double y;
};

class LayoutSolverCase : public testing::TestWithParam<SolverCase> {};

// The present values are x = 3, y = 4.
TEST_P(LayoutSolverCase, GivesTheExpectedValues) {
  const auto values = solved(3, 4, GetParam().conditions);
  EXPECT_THAT(values, ElementsAre(DoubleNear(GetParam().x, 1e-12), DoubleNear(GetParam().y, 1e-12)))
      << GetParam().what;
}

INSTANTIATE_TEST_SUITE_P(
    Table, LayoutSolverCase,
    testing::Values(
        SolverCase{"NaN coefficient is ignored", {{kNaN, 0, kEqual, 1, 1000}}, 3, 4},
        SolverCase{"infinite coefficient is ignored", {{kInfinity, 1, kEqual, 1, 1000}}, 3, 4},
        SolverCase{"NaN constant is ignored", {{1, 0, kEqual, kNaN, 1000}}, 3, 4},
        SolverCase{"infinite constant is ignored", {{1, 0, kAtMost, -kInfinity, 1000}}, 3, 4},
        SolverCase{"no variable at all is ignored", {{0, 0, kEqual, 7, 1000}}, 3, 4},
        SolverCase{"largest constant", {{1, 0, kEqual, 1e300, 1000}}, 1e300, 4},
        SolverCase{"smallest coefficient", {{1e-300, 0, kEqual, 1e-300, 1000}}, 3, 4},
        SolverCase{"contradictory required ones: the earlier is met",
                   {{1, 0, kEqual, 10, 1000}, {1, 0, kEqual, 20, 1000}},
                   10,
                   4},
        SolverCase{"contradictory required inequalities: the earlier is met",
                   {{1, 0, kAtLeast, 10, 1000}, {1, 0, kAtMost, 5, 1000}, {1, 0, kEqual, 3, 0.5}},
                   10,
                   4},
        SolverCase{"an axiom beats an earlier required one",
                   {{1, 0, kEqual, -10, 1000}, {1, 0, kAtLeast, 0, LayoutSolver::kAxiom}},
                   0,
                   4},
        SolverCase{"251 gives way to 750", {{1, 0, kEqual, 1, 251}, {1, 0, kEqual, 2, 750}}, 2, 4},
        SolverCase{"750 gives way to 751, however many",
                   {{1, 0, kEqual, 1, 750},
                    {1, 0, kEqual, 1, 750},
                    {1, 0, kEqual, 1, 750},
                    {1, 0, kEqual, 2, 751}},
                   2,
                   4},
        SolverCase{"999 gives way to required",
                   {{1, 0, kEqual, 1e6, 999}, {1, 0, kAtMost, 2, 1000}},
                   2,
                   4},
        SolverCase{"a weaker one is met as nearly as a stronger allows",
                   {{1, 0, kEqual, 100, 1}, {1, 0, kAtMost, 60, 1.5}},
                   60,
                   4},
        SolverCase{"among equals the sum of deviations is smallest",
                   {{1, 0, kEqual, 0, 500}, {1, 0, kEqual, 10, 500}, {1, 0, kEqual, 7, 500}},
                   7,
                   4},
        SolverCase{"an inequality that holds does not pull",
                   {{1, 0, kAtMost, 100, 1000}, {1, 0, kEqual, 3, 0.5}},
                   3,
                   4},
        SolverCase{"two equations in two unknowns",
                   {{1, 1, kEqual, 10, 750}, {1, -1, kEqual, 2, 750}},
                   6,
                   4},
        SolverCase{"what is open is decided by the weakest",
                   {{1, 1, kEqual, 10, 1000}, {1, 0, kEqual, 3, 0.5}, {0, 1, kEqual, 4, 0.25}},
                   3,
                   7},
        SolverCase{"nothing keeps the present values", {}, 3, 4}));

TEST(LayoutSolver, TermsOfTheSameVariableAddUp) {
  LayoutSolver solver;
  const auto x = solver.addVariable(0);
  solver.addConstraint({{x, 1}, {x, 3}}, kEqual, 8, 750);
  EXPECT_THAT(solver.solve(), ElementsAre(DoubleEq(2)));
}

TEST(LayoutSolver, TermsThatCancelMakeAConditionWithoutVariables) {
  LayoutSolver solver;
  const auto x = solver.addVariable(5);
  solver.addConstraint({{x, 0.1}, {x, 0.2}, {x, -0.3}}, kEqual, 8, 750);
  EXPECT_THAT(solver.solve(), ElementsAre(DoubleEq(5)));
}

TEST(LayoutSolver, TermsThatOverflowTogetherAreIgnored) {
  LayoutSolver solver;
  const auto x = solver.addVariable(5);
  solver.addConstraint({{x, 1.7e308}, {x, 1.7e308}}, kEqual, 8, 750);
  EXPECT_THAT(solver.solve(), ElementsAre(DoubleEq(5)));
}

TEST(LayoutSolver, AChainOfHundredsOfVariablesIsFollowedToItsEnd) {
  constexpr int kLinks = 300;
  LayoutSolver solver;
  for (int i = 0; i < kLinks; ++i) {
    solver.addVariable(0);
    solver.addConstraint({{std::size_t(i), 1}}, kEqual, 0, 0.5);
  }
  for (int i = kLinks - 1; i > 0; --i)
    solver.addConstraint({{std::size_t(i), 1}, {std::size_t(i) - 1, -1}}, kEqual, 1, 750);
  solver.addConstraint({{0, 1}}, kEqual, 5, 751);
  const auto values = solver.solve();
  for (int i = 0; i < kLinks; ++i) EXPECT_DOUBLE_EQ(values[i], 5 + i);
}

/// Deviations by level, the strongest first, as the solver ranks them.
std::vector<double> deviations(const std::vector<Condition>& conditions, double x, double y) {
  auto ranked = conditions;
  std::stable_sort(ranked.begin(), ranked.end(),
                   [](const auto& a, const auto& b) { return a.strength > b.strength; });
  std::vector<double> levels;
  for (std::size_t i = 0; i < ranked.size(); ++i) {
    const auto& c = ranked[i];
    const double excess = c.x * x + c.y * y - c.constant;
    const double deviation = c.relation == kEqual    ? std::abs(excess)
                             : c.relation == kAtMost ? std::max(excess, 0.0)
                                                     : std::max(-excess, 0.0);
    if (i > 0 && c.strength == ranked[i - 1].strength && c.strength != LayoutSolver::kRequired)
      levels.back() += deviation;
    else
      levels.push_back(deviation);
  }
  return levels;
}

bool isBetter(const std::vector<double>& a, const std::vector<double>& b) {
  for (std::size_t i = 0; i < a.size(); ++i)
    if (std::abs(a[i] - b[i]) > 1e-6) return a[i] < b[i];
  return false;
}

// The best point of a plane cut by lines is where two of them cross; the two conditions that keep
// x and y see to it that there is one.
RC_GTEST_PROP(LayoutSolver, NoCrossingOfTwoConditionsIsBetterThanTheSolution, ()) {
  const auto count = *rc::gen::inRange(1, 9);
  std::vector<Condition> conditions = {{1, 0, kEqual, 3, 0.5}, {0, 1, kEqual, 4, 0.25}};
  for (int i = 0; i < count; ++i)
    conditions.push_back({double(*rc::gen::inRange(-3, 4)), double(*rc::gen::inRange(-3, 4)),
                          *rc::gen::element(kEqual, kAtMost, kAtLeast),
                          double(*rc::gen::inRange(-20, 21)),
                          *rc::gen::element(1.0, 250.0, 750.0, 751.0, 1000.0)});
  std::erase_if(conditions, [](const auto& c) { return c.x == 0 && c.y == 0; });

  const auto values = solved(3, 4, conditions);
  const auto reached = deviations(conditions, values[0], values[1]);
  for (const auto& a : conditions)
    for (const auto& b : conditions) {
      const double determinant = a.x * b.y - b.x * a.y;
      if (determinant == 0) continue;
      const double x = (a.constant * b.y - b.constant * a.y) / determinant;
      const double y = (a.x * b.constant - b.x * a.constant) / determinant;
      RC_ASSERT(!isBetter(deviations(conditions, x, y), reached));
    }
}

RC_GTEST_PROP(LayoutSolver, AnythingAtAllGivesFiniteValues, ()) {
  LayoutSolver solver;
  const auto variables = *rc::gen::inRange<std::size_t>(1, 6);
  for (std::size_t i = 0; i < variables; ++i) solver.addVariable(double(i));
  const auto number = [] {
    return *rc::gen::oneOf(
        rc::gen::arbitrary<double>(),
        rc::gen::element(0.0, kNaN, kInfinity, -kInfinity, 1e308, -1e308, 1e-308, 1.0, -1.0, 0.5));
  };
  const auto count = *rc::gen::inRange(0, 20);
  for (int i = 0; i < count; ++i) {
    std::vector<LayoutTerm> terms;
    const auto length = *rc::gen::inRange(0, 4);
    for (int t = 0; t < length; ++t)
      terms.push_back({*rc::gen::inRange<std::size_t>(0, variables), number()});
    solver.addConstraint(terms, *rc::gen::element(kEqual, kAtMost, kAtLeast), number(),
                         *rc::gen::element(0.5, 1.0, 750.0, 1000.0, 2000.0));
  }
  const auto values = solver.solve();
  RC_ASSERT(values.size() == variables);
  for (const double value : values) RC_ASSERT(std::isfinite(value));
}

}  // namespace
}  // namespace vexel
