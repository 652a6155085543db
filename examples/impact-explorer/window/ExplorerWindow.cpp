#include "ExplorerWindow.h"

#include <Foundation/NSNotificationCenter.h>
#include <Vexel/FigureExport.h>
#include <VexelQt/ViewCopies.h>

#include <QApplication>
#include <QClipboard>
#include <QCloseEvent>
#include <QDockWidget>
#include <QDragEnterEvent>
#include <QFileDialog>
#include <QFileInfo>
#include <QMenuBar>
#include <QMessageBox>
#include <QMimeData>
#include <QPrintDialog>
#include <QPrinter>
#include <QSaveFile>
#include <QScreen>
#include <QScrollArea>
#include <QStatusBar>
#include <QVBoxLayout>
#include <stdexcept>

#include "InputError.h"

namespace explorer {

using namespace std::chrono_literals;
using vexel::NSNotificationCenter;
using vexel::PlotCT;
using vexel::PlotTheme;

namespace {

constexpr double kExportedPixelsPerPoint = 2;
constexpr double kCopiedPixelsPerPoint = 2;
// What takes less needs no word.
constexpr auto kPatience = 200ms;
constexpr int kProgressInterval = 50;
constexpr int kStatusTime = 6000;
constexpr const char* kFilters = "PNG image (*.png);;PDF document (*.pdf);;SVG drawing (*.svg)";
constexpr const char* kUse =
    "<table cellspacing=4>"
    "<tr><td><b>Move</b></td><td>read values at the marker</td></tr>"
    "<tr><td><b>Click</b></td><td>pin a marker; Escape removes all</td></tr>"
    "<tr><td><b>Wheel</b></td><td>zoom the time about the pointer; sideways: pan</td></tr>"
    "<tr><td><b>Drag</b></td><td>pan the time</td></tr>"
    "<tr><td><b>Shift or right button and drag</b></td><td>choose the time to show</td></tr>"
    "<tr><td><b>Double click, Home</b></td><td>show all of the time</td></tr>"
    "<tr><td><b>Arrows, + and -</b></td><td>pan and zoom</td></tr>"
    "<tr><td><b>Alt+Left, Alt+Right</b></td><td>back and forward</td></tr>"
    "<tr><td><b>Drop a file</b></td><td>open it</td></tr>"
    "</table>";

/// As a whole or, with an exception, not at all.
void write(const QByteArray& content, const QString& name) {
  QSaveFile file(name);
  if (file.open(QIODevice::WriteOnly) && file.write(content) == content.size() && file.commit())
    return;
  throw std::runtime_error((name + ": " + file.errorString()).toStdString());
}

QString fileName(const QString& file) {
  return QFileInfo(file).fileName();
}

std::string localFile(const QMimeData& data) {
  const auto urls = data.urls();
  return urls.size() == 1 ? urls.front().toLocalFile().toStdString() : "";
}

}  // namespace

ExplorerWindow::ExplorerWindow(PlotTheme theme, std::optional<PlotCT> table,
                               vexel::CGSize figureSize)
    : view_(std::make_shared<ExplorerView>(vexel::CGRect{{}, figureSize}, theme, table)),
      plot_(new vexel::PlotWidget(view_)),
      message_(new MessageBar),
      readOut_(new QLabel) {
  setAttribute(Qt::WA_DeleteOnClose);
  setAcceptDrops(true);

  readOut_->setObjectName("readOut");
  readOut_->setTextFormat(Qt::RichText);
  readOut_->setMargin(4);
  // Two lines, so that a longer text does not move the figure, nor widen the window.
  readOut_->setWordWrap(true);
  readOut_->setAlignment(Qt::AlignTop | Qt::AlignLeft);
  readOut_->setFixedHeight(2 * readOut_->fontMetrics().lineSpacing() + 2 * readOut_->margin());
  plot_->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);

  auto* const central = new QWidget;
  auto* const column = new QVBoxLayout(central);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(0);
  column->addWidget(message_);
  column->addWidget(readOut_);
  column->addWidget(plot_, 1);
  setCentralWidget(central);

  addPanel();
  addProgress();
  addFileMenu();
  addViewMenu();
  addHelpMenu();
  view_->onChange = [this] { viewChanged(); };
  viewChanged();
  plot_->setFocus();
  // Otherwise it would take no more than two thirds of the screen.
  resize(sizeHint().boundedTo(screen()->availableSize()));
}

ExplorerWindow::~ExplorerWindow() {
  view_->onChange = nullptr;
}

void ExplorerWindow::addPanel() {
  panel_ = new ChoicePanel;
  panel_->onChoice = [this](const Choice& choice) {
    view_->choose(choice);
    plot_->setFocus();
  };
  // Every figure of the program hears of these, not only this window's.
  panel_->onTheme = [](PlotTheme theme) {
    NSNotificationCenter::defaultCenter().post({.name = PlotTheme::didChange(), .userInfo = theme});
  };
  panel_->onTable = [](const std::optional<PlotCT>& table) {
    NSNotificationCenter::defaultCenter().post(
        {.name = PlotCT::colourTableDidChange(), .userInfo = table});
  };
  auto* const dock = new QDockWidget("Figure");
  dock->setFeatures(QDockWidget::DockWidgetMovable | QDockWidget::DockWidgetFloatable);
  auto* const scroll = new QScrollArea;
  scroll->setFrameShape(QFrame::NoFrame);
  scroll->setWidgetResizable(true);
  scroll->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  scroll->setWidget(panel_);
  dock->setWidget(scroll);
  addDockWidget(Qt::RightDockWidgetArea, dock);
}

void ExplorerWindow::addProgress() {
  shown_ = new QLabel;
  loadProgress_ = new JobProgress;
  loadProgress_->setObjectName("loadProgress");
  outputProgress_ = new JobProgress;
  outputProgress_->setObjectName("outputProgress");
  for (QWidget* const widget :
       std::initializer_list<QWidget*>{outputProgress_, loadProgress_, shown_})
    statusBar()->addPermanentWidget(widget);
  loadProgress_->onCancel = [this] {
    if (loadJob_) loadJob_->cancel();
  };
  outputProgress_->onCancel = [this] {
    if (outputJob_) outputJob_->cancel();
  };
  connect(&loadTimer_, &QTimer::timeout, this,
          [this] { loadProgress_->setProgress(loadJob_->progress()); });
}

void ExplorerWindow::addFileMenu() {
  QMenu* const menu = menuBar()->addMenu("&File");
  menu->addAction("&Open...", QKeySequence::Open, this, [this] { openOther(); });
  menu->addAction("Open the &Sample", this, [this] { open({.theme = view_->theme()}); });
  menu->addAction("&New Window", QKeySequence::New, this, [this] { duplicate(); });
  menu->addSeparator();
  menu->addAction("&Export...", QKeySequence("Ctrl+E"), this, [this] { exportFigure(); });
  menu->addAction("&Print...", QKeySequence::Print, this, [this] { print(); });
  menu->addAction("&Copy", QKeySequence::Copy, this, [this] { copy(); });
  menu->addSeparator();
  menu->addAction("C&lose", QKeySequence::Close, this, [this] { close(); });
  menu->addAction("&Quit", QKeySequence::Quit, this, [] { QApplication::closeAllWindows(); });
}

void ExplorerWindow::addViewMenu() {
  QMenu* const menu = menuBar()->addMenu("&View");
  menu->addAction("Zoom &In", QKeySequence("Ctrl++"), this, [this] { view_->zoomIn(); });
  menu->addAction("Zoom &Out", QKeySequence("Ctrl+-"), this, [this] { view_->zoomOut(); });
  menu->addAction("&Earlier", QKeySequence("Ctrl+Left"), this, [this] { view_->panBackward(); });
  menu->addAction("&Later", QKeySequence("Ctrl+Right"), this, [this] { view_->panForward(); });
  all_ = menu->addAction("Show &All", QKeySequence("Ctrl+0"), this, [this] { view_->showAll(); });
  menu->addSeparator();
  back_ = menu->addAction("&Back", QKeySequence("Alt+Left"), this, [this] { view_->goBack(); });
  forward_ =
      menu->addAction("&Forward", QKeySequence("Alt+Right"), this, [this] { view_->goForward(); });
  menu->addSeparator();
  removePins_ = menu->addAction("&Remove Pinned Markers", QKeySequence("Escape"), this,
                                [this] { view_->removePins(); });
}

void ExplorerWindow::addHelpMenu() {
  QMenu* const menu = menuBar()->addMenu("&Help");
  menu->addAction("&Mouse and Keys", QKeySequence::HelpContents, this, [this] { explainUse(); });
}

// Opening

void ExplorerWindow::open(const WindowOptions& options) {
  endLoading();
  if (!options.file) {
    const auto sample = [&] {
      return std::make_shared<const Exploration>(std::nullopt, options.timeName,
                                                 [](std::uint64_t) { return true; });
    };
    try {
      loaded({sample(), ""}, options);
    } catch (const InputError& error) {
      loaded({nullptr, error.what()}, options);
    }
    return;
  }
  const auto done = [this, options](const LoadJob::Result& result) { loaded(result, options); };
  loadJob_ = std::make_unique<LoadJob>(*options.file, options.timeName, done);
  statusBar()->clearMessage();
  loadProgress_->begin("Reading " + fileName(QString::fromStdString(*options.file)), 0ms);
  loadTimer_.start(kProgressInterval);
}

void ExplorerWindow::openFile(const QString& file) {
  if (!file.isEmpty()) open({.file = file.toStdString(), .theme = view_->theme()});
}

void ExplorerWindow::endLoading() {
  loadTimer_.stop();
  loadProgress_->end();
  loadJob_.reset();
}

void ExplorerWindow::loaded(const LoadJob::Result& result, const WindowOptions& options) {
  const QString file = QString::fromStdString(options.file.value_or("the sample"));
  endLoading();
  if (!result.exploration) {
    message_->setText(result.complaint.empty() ? "Reading " + file + " was cancelled."
                                               : QString::fromStdString(result.complaint));
    return;
  }
  QStringList warnings;
  for (const std::string& warning : result.exploration->warnings())
    warnings << QString::fromStdString(warning);
  message_->setText(warnings.join('\n'));
  show(result.exploration,
       result.exploration->choice(std::nullopt, options.colorName, options.bands));
  statusBar()->showMessage(QString("%L1 rows").arg(result.exploration->rowCount()), kStatusTime);
}

void ExplorerWindow::show(std::shared_ptr<const Exploration> exploration, const Choice& choice) {
  setWindowTitle(fileName(QString::fromStdString(exploration->name())) + " - Impact Explorer");
  panel_->showQuantities(*exploration);
  view_->explore(std::move(exploration), choice);
}

void ExplorerWindow::openOther() {
  openFile(QFileDialog::getOpenFileName(this, "Open a table", QString(),
                                        "Tables (*.csv *.tsv *.txt);;All files (*)"));
}

void ExplorerWindow::dragEnterEvent(QDragEnterEvent* event) {
  if (!localFile(*event->mimeData()).empty()) event->acceptProposedAction();
}

void ExplorerWindow::dropEvent(QDropEvent* event) {
  openFile(QString::fromStdString(localFile(*event->mimeData())));
  event->acceptProposedAction();
}

void ExplorerWindow::duplicate() {
  auto* const other = new ExplorerWindow(view_->theme(), view_->colorTable(), view_->bounds().size);
  if (view_->exploration()) other->show(view_->exploration(), view_->choice());
  other->show();
}

// Output

void ExplorerWindow::exportFigure() {
  QString filter;
  QString file =
      QFileDialog::getSaveFileName(this, "Export the figure", "figure.png", kFilters, &filter);
  if (file.isEmpty()) return;
  if (QFileInfo(file).suffix().isEmpty()) file += filter.section('*', 1).section(')', 0, 0);
  exportTo(file);
}

void ExplorerWindow::exportTo(const QString& file) {
  const auto exportView = [file](vexel::NSView& view) -> OutputJob::Rest {
    vexel::exportFigure(view, file.toStdString(), kExportedPixelsPerPoint);
    return [] {};
  };
  make({"Exporting " + fileName(file), "Exported to " + file, {view_->shown(), exportView}});
}

void ExplorerWindow::print() {
  const auto printer = std::make_shared<QPrinter>(QPrinter::HighResolution);
  printer->setPageOrientation(QPageLayout::Landscape);
  QPrintDialog dialog(printer.get(), this);
  if (dialog.exec() != QDialog::Accepted) return;
  const auto printView = [printer](vexel::NSView& view) -> OutputJob::Rest {
    const auto demand = [](bool isPrinted) {
      if (!isPrinted) throw std::runtime_error("The figure could not be printed.");
    };
    if (printer->outputFormat() == QPrinter::PdfFormat) {
      const QByteArray page = vexel::pdfPageOfView(view, printer->pageLayout());
      demand(!page.isEmpty());
      write(page, printer->outputFileName());
    } else {
      demand(vexel::printView(view, *printer));
    }
    return [] {};
  };
  make({"Printing", "Printed", {view_->shown(), printView}});
}

void ExplorerWindow::copy() {
  const qreal pixelsPerPoint = kCopiedPixelsPerPoint * devicePixelRatioF();
  const auto copyView = [pixelsPerPoint](vexel::NSView& view) -> OutputJob::Rest {
    const auto copied =
        std::make_shared<std::unique_ptr<QMimeData>>(vexel::mimeDataOfView(view, pixelsPerPoint));
    (*copied)->moveToThread(QCoreApplication::instance()->thread());
    return [copied] { QGuiApplication::clipboard()->setMimeData(copied->release()); };
  };
  make({"Copying", "Copied", {view_->shown(), copyView}});
}

void ExplorerWindow::make(Output output) {
  outputs_.push_back(std::move(output));
  if (!outputJob_) makeNext();
}

void ExplorerWindow::makeNext() {
  const Output& next = outputs_.front();
  statusBar()->clearMessage();
  outputProgress_->begin(next.doing, kPatience);
  outputJob_ = std::make_unique<OutputJob>(
      next.task, [this](const OutputJob::Result& result) { made(result); });
}

void ExplorerWindow::made(const OutputJob::Result& result) {
  const Output output = std::move(outputs_.front());
  outputs_.pop_front();
  outputJob_.reset();
  outputProgress_->end();
  if (result.rest) {
    result.rest();
    statusBar()->showMessage(output.done, kStatusTime);
  } else if (result.complaint.empty()) {
    statusBar()->showMessage(output.doing + " was cancelled", kStatusTime);
  } else {
    message_->setText(QString::fromStdString(result.complaint));
    show();
  }
  if (!outputs_.empty()) return makeNext();
  if (keepsRunning_ && !isVisible()) deleteLater();
  keepsRunning_.reset();
}

void ExplorerWindow::closeEvent(QCloseEvent* event) {
  event->accept();
  setAttribute(Qt::WA_DeleteOnClose, !isMakingOutput());
  if (isMakingOutput()) keepsRunning_.emplace();
}

void ExplorerWindow::explainUse() {
  QMessageBox box(QMessageBox::NoIcon, "Mouse and Keys", kUse, QMessageBox::Close, this);
  box.exec();
}

// What the view shows

QString ExplorerWindow::readOut() {
  const auto under = view_->underMarker();
  if (!under) return "";
  QString text = "<b>" + QString::fromStdString(under->time).toHtmlEscaped() + "</b>";
  for (const auto& [name, value] : under->values)
    text += " &nbsp;&nbsp; <span style='white-space:nowrap'>" +
            QString::fromStdString(name).toHtmlEscaped() + " <b>" +
            QString::fromStdString(value).toHtmlEscaped() + "</b></span>";
  return text;
}

void ExplorerWindow::viewChanged() {
  const TimeNavigation& navigation = view_->navigation();
  readOut_->setText(readOut());
  shown_->setText(QString::fromStdString(view_->shownText()));
  back_->setEnabled(navigation.canGoBack());
  forward_->setEnabled(navigation.canGoForward());
  all_->setEnabled(navigation.shown() != navigation.whole());
  removePins_->setEnabled(!view_->pins().empty());
  panel_->showTheme(view_->theme());
  panel_->showTable(view_->colorTable());
  panel_->showChoice(view_->choice());
}

}  // namespace explorer
