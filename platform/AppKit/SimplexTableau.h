#pragma once

#include <cstddef>
#include <optional>
#include <vector>

#include "LayoutSolver.h"

namespace vexel {

/// The tableau of one system of conditions: some symbols, the basic ones, written as a constant
/// plus multiples of the others, which are 0. Symbols are the free variables, numbered from 0, and
/// two restricted ones (at least 0) per condition, `above` and `below`:
///
///     sum of terms - constant == above - below
///
/// Each of the two costs what it holds, at its level, where the condition forbids it. Rows of
/// restricted basic symbols never contain free variables: a condition that still has one open is
/// solved for it.
class SimplexTableau {
 public:
  /// Room for so many free variables, conditions and levels; level 0 counts most.
  SimplexTableau(std::size_t variables, std::size_t conditions, std::size_t levels);

  void add(const std::vector<LayoutTerm>& terms, NSLayoutRelation relation, double constant,
           std::size_t level);

  /// Makes the costs as small as possible, level by level. False when rounding kept it from
  /// coming to an end.
  bool minimize();

  /// The value of a free variable; absent when no condition speaks of it.
  std::optional<double> value(std::size_t variable) const;

 private:
  using Expression = std::vector<double>;  // one coefficient per symbol, the constant last

  struct Row {
    std::size_t basic;
    Expression expression;
  };

  bool isFree(std::size_t symbol) const { return symbol < variables_; }
  void substitute(std::size_t symbol, const Expression& by);
  void addCost(std::size_t level, std::size_t symbol);
  std::optional<std::size_t> entering() const;
  std::optional<std::size_t> leavingFor(std::size_t entering) const;
  void pivot(std::size_t row, std::size_t entering);

  std::size_t variables_;
  std::size_t constant_;  // where an expression has its constant
  std::size_t conditions_ = 0;
  std::vector<Row> rows_;
  std::vector<std::optional<std::size_t>> rowOf_;  // by symbol; absent when not basic
  std::vector<Expression> costs_;                  // by level
};

}  // namespace vexel
