#pragma once

#include <PlotColorTable/PlotCT.h>
#include <PlotTheme/PlotTheme.h>

#include <QComboBox>
#include <QWidget>
#include <functional>
#include <optional>
#include <vector>

#include "Exploration.h"

namespace explorer {

/// What the user chooses of a figure: theme, quantities, colour table, and what the bands show.
class ChoicePanel : public QWidget {
 public:
  static constexpr int kMostBands = 5;

  explicit ChoicePanel(QWidget* parent = nullptr);

  // What the panel shows; nothing is called back.

  void showQuantities(const Exploration& exploration);
  void showChoice(const Choice& choice);
  void showTheme(vexel::PlotTheme theme);
  void showTable(const std::optional<vexel::PlotCT>& table);

  // Called when the user has chosen

  std::function<void(const Choice&)> onChoice;
  std::function<void(vexel::PlotTheme)> onTheme;
  std::function<void(const std::optional<vexel::PlotCT>&)> onTable;

 private:
  QComboBox* addBox(const QString& label, const QString& name);
  Choice chosen() const;

  QComboBox* theme_;
  QComboBox* value_;
  QComboBox* color_;
  QComboBox* table_;
  std::vector<QComboBox*> bands_;
};

}  // namespace explorer
