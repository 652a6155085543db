#include "window/ExplorerWindow.h"

#include <Vexel/FigureExport.h>
#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QDropEvent>
#include <QMimeData>
#include <QPointer>
#include <QStatusBar>
#include <QTest>
#include <QUrl>
#include <fstream>

#include "../impact-explorer/TemporaryFolder.h"

namespace explorer {
namespace {

using vexel::PlotCT;
using vexel::PlotTheme;

constexpr const char* kTable = "JD,A,B\n2459000.5,1,2\n2459001.5,3.5,4\n2459002.5,5,6\n";

class ExplorerWindowTest : public testing::Test {
 protected:
  ~ExplorerWindowTest() override { delete window.data(); }

  static QPointer<ExplorerWindow> shown() {
    QPointer<ExplorerWindow> made(
        new ExplorerWindow(PlotTheme::white, std::nullopt, vexel::CGSize{500, 400}));
    made->show();
    return made;
  }
  /// What a window shows of a name, anywhere.
  template <class Widget>
  static Widget* find(const ExplorerWindow& in, const QString& name) {
    return in.findChild<Widget*>(name);
  }
  QString message() const {
    const auto* const label = window->findChild<QLabel*>("message");
    return label->isVisible() ? label->text() : QString();
  }
  QToolButton* cancelButton(const QString& progress) const {
    return find<QWidget>(*window, progress)->findChild<QToolButton*>("cancel");
  }
  bool open(const std::string& file) {
    window->open({.file = file, .size = {}});
    return QTest::qWaitFor([&] { return !window->isLoading(); });
  }
  bool finishOutput() {
    return QTest::qWaitFor([&] { return !window->isMakingOutput(); });
  }
  QString pathOf(const char* name) const {
    return QString::fromStdString(folder.path()) + "/" + name;
  }
  static void choose(QComboBox& box, int index) {
    box.setCurrentIndex(index);
    Q_EMIT box.activated(index);
  }

  TemporaryFolder folder;
  QPointer<ExplorerWindow> window = shown();
};

TEST_F(ExplorerWindowTest, ShowsATableAndReportsItsSkippedRows) {
  ASSERT_TRUE(open(folder.write("good.csv", kTable)));
  EXPECT_EQ(window->windowTitle(), "good.csv - Impact Explorer");
  EXPECT_EQ(message(), "");
  ASSERT_TRUE(open(folder.write("damaged.csv", std::string(kTable) + "7\n")));
  EXPECT_EQ(window->windowTitle(), "damaged.csv - Impact Explorer");
  EXPECT_TRUE(message().contains("row left out"));
}

TEST_F(ExplorerWindowTest, WhatCannotBeReadIsSaidAndLeavesTheFigure) {
  ASSERT_TRUE(open(folder.write("good.csv", kTable)));
  const auto before = window->view().exploration();
  for (const auto& [file, text] :
       {std::pair{folder.path() + "/missing.csv", "no such file"},
        std::pair{folder.write("picture.png", "\x89PNG\r\n\x1a\n"), "not text"},
        std::pair{folder.write("words.csv", "one,two\nno,numbers\n"), "no row can be read"}}) {
    ASSERT_TRUE(open(file));
    EXPECT_TRUE(message().contains(text)) << message().toStdString();
    EXPECT_EQ(window->windowTitle(), "good.csv - Impact Explorer");
    EXPECT_EQ(window->view().exploration(), before);
  }
  ASSERT_TRUE(open(folder.write("good.csv", kTable)));
  EXPECT_EQ(message(), "");
}

TEST_F(ExplorerWindowTest, AnotherFileEndsTheReadingOfTheFirst) {
  std::string many = "JD,A\n";
  for (int i = 0; i < 300'000; ++i) many += std::to_string(i) + ",1.25\n";
  const std::string large = folder.write("large.csv", many);
  window->open({.file = large, .size = {}});
  EXPECT_TRUE(window->isLoading());
  ASSERT_TRUE(open(folder.write("good.csv", kTable)));
  QTest::qWait(50);
  EXPECT_EQ(window->windowTitle(), "good.csv - Impact Explorer");
  window->open({.file = large, .size = {}});
  window->close();
  QTest::qWait(1);
  EXPECT_EQ(window, nullptr);
}

TEST_F(ExplorerWindowTest, ReadingCanBeCancelled) {
  std::string many = "JD,A\n";
  for (int i = 0; i < 300'000; ++i) many += std::to_string(i) + ",1.25\n";
  window->open({.file = folder.write("large.csv", many), .size = {}});
  auto* const cancel = cancelButton("loadProgress");
  ASSERT_TRUE(cancel->isVisible());
  cancel->click();
  ASSERT_TRUE(QTest::qWaitFor([&] { return !window->isLoading(); }));
  EXPECT_TRUE(message().contains("cancelled"));
  EXPECT_FALSE(cancel->isVisible());
  EXPECT_EQ(window->view().exploration(), nullptr);
}

TEST_F(ExplorerWindowTest, OpensWhatIsDroppedOntoIt) {
  QMimeData data;
  data.setUrls({QUrl::fromLocalFile(QString::fromStdString(folder.write("good.csv", kTable)))});
  QDragEnterEvent over({10, 10}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
  QApplication::sendEvent(window, &over);
  EXPECT_TRUE(over.isAccepted());
  QDropEvent drop({10, 10}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
  QApplication::sendEvent(window, &drop);
  ASSERT_TRUE(QTest::qWaitFor([&] { return !window->isLoading(); }));
  EXPECT_EQ(window->windowTitle(), "good.csv - Impact Explorer");
  QMimeData text;
  text.setText("no file");
  QDragEnterEvent enter({10, 10}, Qt::CopyAction, &text, Qt::LeftButton, Qt::NoModifier);
  enter.ignore();
  QApplication::sendEvent(window, &enter);
  EXPECT_FALSE(enter.isAccepted());
}

TEST_F(ExplorerWindowTest, ThemeAndTableReachEveryWindow) {
  const auto other = shown();
  ASSERT_TRUE(open(folder.write("good.csv", kTable)));
  choose(*find<QComboBox>(*window, "theme"), 0);
  choose(*find<QComboBox>(*window, "table"), 1 + PlotCT::gmtHot);
  for (const auto& one : {window, other}) {
    EXPECT_EQ(one->view().theme(), PlotTheme::black);
    EXPECT_EQ(one->view().colorTable(), PlotCT(PlotCT::gmtHot));
    EXPECT_EQ(find<QComboBox>(*one, "theme")->currentText(), "Black Theme");
    EXPECT_EQ(find<QComboBox>(*one, "table")->currentText(), "GMT: Hot");
  }
  choose(*find<QComboBox>(*other, "table"), 0);
  EXPECT_EQ(window->view().colorTable(), std::nullopt);
  delete other.data();
  choose(*find<QComboBox>(*window, "theme"), 1);
  EXPECT_EQ(window->view().theme(), PlotTheme::white);
}

TEST_F(ExplorerWindowTest, QuantitiesAndBandsAreChosen) {
  ASSERT_TRUE(open(folder.write("good.csv", kTable)));
  EXPECT_EQ(window->view().choice(), (Choice{"A", "B", {"Rows per day"}}));
  choose(*find<QComboBox>(*window, "value"), 1);
  choose(*find<QComboBox>(*window, "band3"), 2);
  EXPECT_EQ(window->view().choice(), (Choice{"B", "B", {"Rows per day", "A"}}));
  // Bands move up.
  EXPECT_EQ(find<QComboBox>(*window, "band2")->currentText(), "A");
  EXPECT_EQ(find<QComboBox>(*window, "band3")->currentText(), "None");
  choose(*find<QComboBox>(*window, "band1"), 0);
  choose(*find<QComboBox>(*window, "band1"), 0);
  EXPECT_TRUE(window->view().choice().bands.empty());
}

TEST_F(ExplorerWindowTest, CopiesTheFigure) {
  ASSERT_TRUE(open(folder.write("good.csv", kTable)));
  QGuiApplication::clipboard()->clear();
  for (QAction* const action : window->findChildren<QAction*>())
    if (action->text() == "&Copy") action->trigger();
  ASSERT_TRUE(finishOutput());
  const QMimeData* const data = QGuiApplication::clipboard()->mimeData();
  EXPECT_TRUE(data->hasImage());
  EXPECT_TRUE(data->hasFormat("image/svg+xml"));
}

std::string contentOf(const QString& file) {
  std::ifstream stream(file.toStdString(), std::ios::binary);
  return {std::istreambuf_iterator(stream), {}};
}

/// What a file holds that shows the same as the view.
std::string figureOf(const ExplorerView& view, const char* name) {
  return vexel::figureData(*std::make_shared<ExplorerView>(view.shown()), name, 2);
}

TEST_F(ExplorerWindowTest, ExportsTheFigureInEveryFormat) {
  ASSERT_TRUE(open(folder.write("good.csv", kTable)));
  for (const char* const name : {"figure.png", "figure.pdf", "figure.svg"}) {
    window->exportTo(pathOf(name));
    ASSERT_TRUE(finishOutput());
    EXPECT_TRUE(contentOf(pathOf(name)) == figureOf(window->view(), name)) << name;
    EXPECT_EQ(window->statusBar()->currentMessage(), "Exported to " + pathOf(name));
  }
}

TEST_F(ExplorerWindowTest, ExportsOneAfterTheOtherAsTheFigureWasWhenEachWasAskedFor) {
  ASSERT_TRUE(open(folder.write("good.csv", kTable)));
  std::vector<std::string> expected;
  for (int theme = 0; theme < 3; ++theme) {
    choose(*find<QComboBox>(*window, "theme"), theme);
    window->exportTo(pathOf("figure.svg") + QString::number(theme) + ".svg");
    expected.push_back(figureOf(window->view(), "figure.svg"));
  }
  ASSERT_TRUE(finishOutput());
  EXPECT_NE(expected[0], expected[1]);
  for (int theme = 0; theme < 3; ++theme)
    EXPECT_EQ(contentOf(pathOf("figure.svg") + QString::number(theme) + ".svg"), expected[theme]);
}

TEST_F(ExplorerWindowTest, SaysWhyItCannotExportAndLeavesTheFile) {
  ASSERT_TRUE(open(folder.write("good.csv", kTable)));
  folder.write("figure.tiff", "before");
  for (const auto& [file, text] :
       {std::pair{pathOf("figure.tiff"), "written as .png"},
        std::pair{pathOf("missing/figure.png"), "missing/figure.png: "}}) {
    window->exportTo(file);
    ASSERT_TRUE(finishOutput());
    EXPECT_TRUE(message().contains(text)) << message().toStdString();
  }
  EXPECT_EQ(contentOf(pathOf("figure.tiff")), "before");
}

TEST_F(ExplorerWindowTest, AnExportCanBeCancelledWhichLeavesTheFileAndTheNextOne) {
  ASSERT_TRUE(open(folder.write("good.csv", kTable)));
  folder.write("figure.png", "before");
  window->exportTo(pathOf("figure.png"));
  window->exportTo(pathOf("next.png"));
  cancelButton("outputProgress")->click();
  ASSERT_TRUE(finishOutput());
  EXPECT_EQ(contentOf(pathOf("figure.png")), "before");
  EXPECT_TRUE(contentOf(pathOf("next.png")).starts_with("\x89PNG"));
  EXPECT_EQ(message(), "");
}

TEST_F(ExplorerWindowTest, AWindowThatIsClosedMakesItsExportsFirst) {
  ASSERT_TRUE(open(folder.write("good.csv", kTable)));
  window->exportTo(pathOf("first.png"));
  window->exportTo(pathOf("second.png"));
  window->close();
  ASSERT_NE(window, nullptr);
  EXPECT_FALSE(window->isVisible());
  ASSERT_TRUE(QTest::qWaitFor([&] { return !window; }));
  for (const char* const name : {"first.png", "second.png"})
    EXPECT_TRUE(contentOf(pathOf(name)).starts_with("\x89PNG")) << name;
}

TEST_F(ExplorerWindowTest, AClosedWindowComesBackWhenAnExportFails) {
  ASSERT_TRUE(open(folder.write("good.csv", kTable)));
  window->exportTo(pathOf("missing/figure.png"));
  window->exportTo(pathOf("second.png"));
  window->close();
  ASSERT_TRUE(QTest::qWaitFor([&] { return !window || window->isVisible(); }));
  ASSERT_NE(window, nullptr);
  EXPECT_TRUE(message().contains("missing/figure.png: "));
  ASSERT_TRUE(finishOutput());
  EXPECT_TRUE(window->isVisible());
  EXPECT_TRUE(contentOf(pathOf("second.png")).starts_with("\x89PNG"));
  window->close();
  QTest::qWait(1);
  EXPECT_EQ(window, nullptr);
}

TEST_F(ExplorerWindowTest, EveryTableHasAPreviewWithItsLowEndOnTheLeft) {
  const auto* const box = find<QComboBox>(*window, "table");
  ASSERT_EQ(box->count(), 20);
  for (int i = 1; i < box->count(); ++i) EXPECT_FALSE(box->itemIcon(i).isNull());
  const QImage gray = box->itemIcon(1 + PlotCT::idlBWLinear).pixmap(box->iconSize()).toImage();
  EXPECT_LT(gray.pixelColor(2, 5).red(), 20);
  EXPECT_GT(gray.pixelColor(gray.width() / 2, 5).red(), 100);
  EXPECT_LT(gray.pixelColor(gray.width() / 2, 5).red(), 150);
}

}  // namespace
}  // namespace explorer
