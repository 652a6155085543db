#include "SimplexTableau.h"

#include <algorithm>
#include <cmath>

namespace vexel {

namespace {

/// Coefficients below this are what rounding left of 0.
constexpr double kNegligible = 1e-9;

void addMultiple(std::vector<double>& to, double factor, const std::vector<double>& of) {
  for (std::size_t i = 0; i < to.size(); ++i) to[i] += factor * of[i];
}

/// What `symbol` equals when `expression`, which contains it, is 0.
std::vector<double> solvedFor(std::size_t symbol, std::vector<double> expression) {
  const double divisor = -expression[symbol];
  expression[symbol] = 0;
  for (double& coefficient : expression) coefficient /= divisor;
  return expression;
}

}  // namespace

SimplexTableau::SimplexTableau(std::size_t variables, std::size_t conditions, std::size_t levels)
    : variables_(variables),
      constant_(variables + 2 * conditions),
      rowOf_(constant_),
      costs_(levels, Expression(constant_ + 1)) {
  rows_.reserve(conditions);
}

void SimplexTableau::add(const std::vector<LayoutTerm>& terms, NSLayoutRelation relation,
                         double constant, std::size_t level) {
  const std::size_t above = variables_ + 2 * conditions_;
  const std::size_t below = above + 1;
  ++conditions_;

  Expression excess(constant_ + 1);
  excess[constant_] = -constant;
  for (const auto& term : terms) {
    if (const auto row = rowOf_[term.variable])
      addMultiple(excess, term.coefficient, rows_[*row].expression);
    else
      excess[term.variable] += term.coefficient;
  }

  const auto firstRestricted = excess.begin() + static_cast<std::ptrdiff_t>(variables_);
  const auto largest = std::max_element(excess.begin(), firstRestricted, [](double a, double b) {
    return std::abs(a) < std::abs(b);
  });
  const bool determinesVariable = largest != firstRestricted && std::abs(*largest) > kNegligible;
  const bool isExceeded = excess[constant_] >= 0;
  const std::size_t basic = determinesVariable ? largest - excess.begin()
                            : isExceeded       ? above
                                               : below;
  if (!determinesVariable) std::fill(excess.begin(), firstRestricted, 0.0);
  excess[above] = -1;
  excess[below] = 1;
  Expression row = solvedFor(basic, std::move(excess));
  if (determinesVariable) substitute(basic, row);
  rowOf_[basic] = rows_.size();
  rows_.push_back({basic, std::move(row)});

  if (relation != NSLayoutRelation::greaterThanOrEqual) addCost(level, above);
  if (relation != NSLayoutRelation::lessThanOrEqual) addCost(level, below);
}

void SimplexTableau::addCost(std::size_t level, std::size_t symbol) {
  if (const auto row = rowOf_[symbol])
    addMultiple(costs_[level], 1, rows_[*row].expression);
  else
    costs_[level][symbol] += 1;
}

void SimplexTableau::substitute(std::size_t symbol, const Expression& by) {
  const auto replaceIn = [&](Expression& expression) {
    const double coefficient = expression[symbol];
    if (coefficient == 0) return;
    expression[symbol] = 0;
    addMultiple(expression, coefficient, by);
  };
  for (auto& row : rows_) replaceIn(row.expression);
  for (auto& cost : costs_) replaceIn(cost);
}

bool SimplexTableau::minimize() {
  // Choosing always the first symbol that helps ends after finitely many pivots; the limit only
  // guards against rounding.
  for (std::size_t pivots = 0; pivots < 100 + 20 * rows_.size(); ++pivots) {
    const auto symbol = entering();
    if (!symbol) return true;
    const auto row = leavingFor(*symbol);
    if (!row) return false;
    pivot(*row, *symbol);
  }
  return false;
}

std::optional<std::size_t> SimplexTableau::entering() const {
  for (std::size_t symbol = variables_; symbol < constant_; ++symbol)
    for (const auto& cost : costs_) {
      if (cost[symbol] < -kNegligible) return symbol;
      if (cost[symbol] > kNegligible) break;
    }
  return std::nullopt;
}

std::optional<std::size_t> SimplexTableau::leavingFor(std::size_t entering) const {
  std::optional<std::size_t> leaving;
  double leastGrowth = 0;
  for (std::size_t i = 0; i < rows_.size(); ++i) {
    const auto& [basic, expression] = rows_[i];
    if (isFree(basic) || expression[entering] > -kNegligible) continue;
    const double growth = std::max(expression[constant_], 0.0) / -expression[entering];
    if (!leaving || growth < leastGrowth ||
        (growth == leastGrowth && basic < rows_[*leaving].basic)) {
      leaving = i;
      leastGrowth = growth;
    }
  }
  return leaving;
}

void SimplexTableau::pivot(std::size_t row, std::size_t entering) {
  const std::size_t leaving = rows_[row].basic;
  Expression expression = std::move(rows_[row].expression);
  expression[leaving] = -1;
  expression = solvedFor(entering, std::move(expression));
  rows_[row] = {entering, Expression(constant_ + 1)};
  substitute(entering, expression);
  rows_[row].expression = std::move(expression);
  rowOf_[leaving].reset();
  rowOf_[entering] = row;
}

std::optional<double> SimplexTableau::value(std::size_t variable) const {
  const auto row = rowOf_[variable];
  if (!row) return std::nullopt;
  return rows_[*row].expression[constant_];
}

}  // namespace vexel
