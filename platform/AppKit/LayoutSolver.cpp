#include "LayoutSolver.h"

#include <algorithm>
#include <cmath>
#include <numeric>
#include <optional>

#include "SimplexTableau.h"

namespace vexel {

namespace {

/// A coefficient this much smaller than the largest of its condition is taken for 0.
constexpr double kSmallestShare = 1e-12;

/// Adds up the terms of the same variable and leaves out those that vanish; ordered by variable.
std::vector<LayoutTerm> collected(std::vector<LayoutTerm> terms) {
  std::stable_sort(terms.begin(), terms.end(),
                   [](const auto& a, const auto& b) { return a.variable < b.variable; });
  std::vector<LayoutTerm> sums;
  double largest = 0;
  for (const auto& term : terms) {
    largest = std::max(largest, std::abs(term.coefficient));
    if (!sums.empty() && sums.back().variable == term.variable)
      sums.back().coefficient += term.coefficient;
    else
      sums.push_back(term);
  }
  std::erase_if(sums, [&](const auto& term) {
    return std::abs(term.coefficient) <= kSmallestShare * largest;
  });
  return sums;
}

bool isFinite(const std::vector<LayoutTerm>& terms) {
  return std::all_of(terms.begin(), terms.end(),
                     [](const auto& term) { return std::isfinite(term.coefficient); });
}

/// Sets of variables that have conditions in common.
class Groups {
 public:
  explicit Groups(std::size_t variables) : leader_(variables) {
    std::iota(leader_.begin(), leader_.end(), std::size_t{0});
  }

  std::size_t of(std::size_t variable) {
    while (leader_[variable] != variable) {
      leader_[variable] = leader_[leader_[variable]];
      variable = leader_[variable];
    }
    return variable;
  }

  void join(std::size_t a, std::size_t b) { leader_[of(b)] = of(a); }

 private:
  std::vector<std::size_t> leader_;
};

}  // namespace

std::size_t LayoutSolver::addVariable(double present) {
  present_.push_back(present);
  return present_.size() - 1;
}

void LayoutSolver::addConstraint(std::vector<LayoutTerm> terms, NSLayoutRelation relation,
                                 double constant, double strength) {
  if (!isFinite(terms)) return;
  terms = collected(std::move(terms));
  if (terms.empty() || !isFinite(terms) || !std::isfinite(constant)) return;
  constraints_.push_back({std::move(terms), relation, constant, strength});
}

std::vector<double> LayoutSolver::solve() const {
  Groups groups(present_.size());
  for (const auto& constraint : constraints_)
    for (const auto& term : constraint.terms)
      groups.join(constraint.terms[0].variable, term.variable);

  std::vector<const Constraint*> ranked;
  for (const auto& constraint : constraints_) ranked.push_back(&constraint);
  std::stable_sort(ranked.begin(), ranked.end(),
                   [](const auto* a, const auto* b) { return a->strength > b->strength; });

  std::vector<std::vector<std::size_t>> variablesOf(present_.size());
  std::vector<std::size_t> numberInGroup(present_.size());
  for (std::size_t variable = 0; variable < present_.size(); ++variable) {
    auto& members = variablesOf[groups.of(variable)];
    numberInGroup[variable] = members.size();
    members.push_back(variable);
  }
  std::vector<std::vector<const Constraint*>> constraintsOf(present_.size());
  for (const auto* constraint : ranked)
    constraintsOf[groups.of(constraint->terms[0].variable)].push_back(constraint);

  std::vector<double> values = present_;
  for (std::size_t group = 0; group < present_.size(); ++group) {
    const auto& constraints = constraintsOf[group];
    if (constraints.empty()) continue;

    std::vector<std::size_t> levels;
    for (std::size_t i = 0; i < constraints.size(); ++i) {
      const double strength = constraints[i]->strength;
      const bool sharesLevel =
          i > 0 && strength == constraints[i - 1]->strength && strength != kRequired;
      levels.push_back(i == 0 ? 0 : levels.back() + (sharesLevel ? 0 : 1));
    }

    SimplexTableau tableau(variablesOf[group].size(), constraints.size(), levels.back() + 1);
    const auto addAll = [&](bool equations) {
      for (std::size_t i = 0; i < constraints.size(); ++i) {
        if ((constraints[i]->relation == NSLayoutRelation::equal) != equations) continue;
        auto terms = constraints[i]->terms;
        for (auto& term : terms) term.variable = numberInGroup[term.variable];
        tableau.add(terms, constraints[i]->relation, constraints[i]->constant, levels[i]);
      }
    };
    // Equations first, the strongest ahead: they determine variables without a pivot.
    addAll(true);
    addAll(false);
    if (!tableau.minimize()) continue;

    std::vector<double> solved;
    for (std::size_t i = 0; i < variablesOf[group].size(); ++i)
      solved.push_back(tableau.value(i).value_or(present_[variablesOf[group][i]]));
    if (!std::all_of(solved.begin(), solved.end(), [](double v) { return std::isfinite(v); }))
      continue;
    for (std::size_t i = 0; i < solved.size(); ++i) values[variablesOf[group][i]] = solved[i];
  }
  return values;
}

}  // namespace vexel
