#include "ChoicePanel.h"

#include <QFormLayout>
#include <QIcon>
#include <QPixmap>

namespace explorer {

using vexel::PlotCT;
using vexel::PlotTheme;

namespace {

constexpr QSize kPreview(64, 14);

/// The colours of a table from its low end on the left.
QIcon preview(PlotCT table) {
  const auto image = table.image();
  if (!image || !image->cgImage()) return {};
  const vexel::CGImage& column = *image->cgImage();
  const int count = static_cast<int>(column.height());
  QImage row(count, 1, QImage::Format_ARGB32_Premultiplied);
  for (int i = 0; i < count; ++i)
    row.setPixel(i, 0, column.premultipliedARGB(0, static_cast<std::size_t>(count - 1 - i)));
  return QPixmap::fromImage(row.scaled(kPreview));
}

QString text(const std::string& utf8) {
  return QString::fromStdString(utf8);
}

void fill(QComboBox& box, const std::vector<std::string>& entries) {
  box.clear();
  for (const std::string& entry : entries) box.addItem(text(entry));
}

}  // namespace

ChoicePanel::ChoicePanel(QWidget* parent) : QWidget(parent) {
  auto* const form = new QFormLayout(this);
  form->setRowWrapPolicy(QFormLayout::WrapAllRows);

  value_ = addBox("&Quantity", "value");
  color_ = addBox("&Coloured by", "color");
  table_ = addBox("Colour &table", "table");
  table_->setIconSize(kPreview);
  table_->addItem("Of the quantity");
  for (const PlotCT table : PlotCT::getTables())
    table_->addItem(preview(table), text(table.description()));
  for (int i = 1; i <= kMostBands; ++i)
    bands_.push_back(addBox("Band &" + QString::number(i), "band" + QString::number(i)));
  theme_ = addBox("T&heme", "theme");
  for (const auto theme : {PlotTheme::black, PlotTheme::white, PlotTheme::print})
    theme_->addItem(text(PlotTheme(theme).description()));

  connect(theme_, &QComboBox::activated, this,
          [this](int index) { onTheme(*PlotTheme::fromRawValue(index)); });
  connect(table_, &QComboBox::activated, this,
          [this](int index) { onTable(PlotCT::fromRawValue(index - 1)); });
  std::vector<QComboBox*> quantities = bands_;
  quantities.insert(quantities.end(), {value_, color_});
  for (QComboBox* const box : quantities)
    connect(box, &QComboBox::activated, this, [this] { onChoice(chosen()); });
}

QComboBox* ChoicePanel::addBox(const QString& label, const QString& name) {
  auto* const box = new QComboBox;
  box->setObjectName(name);
  box->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  box->setMinimumContentsLength(14);
  static_cast<QFormLayout*>(layout())->addRow(label, box);
  return box;
}

void ChoicePanel::showQuantities(const Exploration& exploration) {
  fill(*value_, exploration.quantities());
  fill(*color_, exploration.quantities());
  for (QComboBox* const box : bands_) {
    fill(*box, exploration.bandQuantities());
    box->insertItem(0, "None");
  }
}

void ChoicePanel::showChoice(const Choice& choice) {
  value_->setCurrentText(text(choice.value));
  color_->setCurrentText(text(choice.color));
  for (std::size_t i = 0; i < bands_.size(); ++i)
    bands_[i]->setCurrentIndex(
        i < choice.bands.size() ? bands_[i]->findText(text(choice.bands[i]), Qt::MatchExactly) : 0);
}

void ChoicePanel::showTheme(PlotTheme theme) {
  theme_->setCurrentIndex(static_cast<int>(theme.rawValue()));
}

void ChoicePanel::showTable(const std::optional<PlotCT>& table) {
  table_->setCurrentIndex(table ? static_cast<int>(table->rawValue()) + 1 : 0);
}

Choice ChoicePanel::chosen() const {
  Choice choice{value_->currentText().toStdString(), color_->currentText().toStdString(), {}};
  for (const QComboBox* const box : bands_)
    if (box->currentIndex() > 0) choice.bands.push_back(box->currentText().toStdString());
  return choice;
}

}  // namespace explorer
