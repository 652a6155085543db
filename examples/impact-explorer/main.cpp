#include <charconv>
#include <cstdio>
#include <optional>
#include <string>
#include <vector>

#include <Vexel/FigureExport.h>
#include <Vexel/PlotView.h>
#include <CLI/CLI.hpp>

#include "ColorFigure.h"
#include "ColoredSeries.h"
#include "CsvReader.h"
#include "Highlights.h"
#include "ImpactFigure.h"
#include "InputError.h"
#include "TableSheet.h"
#include "TimeColumn.h"
#include "window/WindowOptions.h"

namespace {

using namespace explorer;

constexpr int kFailure = 2;
constexpr const char* kSampleName = "sample";

struct Options {
  std::optional<std::string> file;
  std::optional<std::string> timeName;
  std::vector<std::string> valueNames;
  std::string figure = "bands";
  std::optional<std::string> colorName;
  std::vector<std::string> exports;
  vexel::CGSize size{960, 720};
  double scale = 1;
  vexel::PlotTheme theme = vexel::PlotTheme::white;
};

void complain(const std::string& text) {
  std::fprintf(stderr, "impact-explorer: %s\n", text.c_str());
}

/// "800x600" as a size; absent when it is anything else.
std::optional<vexel::CGSize> parsedSize(const std::string& text) {
  const char* const end = text.data() + text.size();
  vexel::CGSize size;
  auto result = std::from_chars(text.data(), end, size.width);
  if (result.ec != std::errc() || result.ptr == end || *result.ptr != 'x') return std::nullopt;
  result = std::from_chars(result.ptr + 1, end, size.height);
  const auto sensible = [](double points) { return points >= 1 && points <= 32767; };
  if (result.ec != std::errc() || result.ptr != end || !sensible(size.width) ||
      !sensible(size.height))
    return std::nullopt;
  return size;
}

/// The options, or the exit code when there is nothing more to do.
std::optional<int> parse(int argc, char** argv, Options& options) {
  CLI::App app(
      "Shows dust impact data, or any table with Julian days, over time: in a window, or with "
      "--export as files.");
  std::string size = "960x720";
  std::string theme = "white";
  app.add_option("file", options.file, "CSV file with a header line; without it a sample is drawn");
  app.add_option("--x", options.timeName, "column of Julian days; found by its name if not given");
  app.add_option("--y", options.valueNames, "column of a band; once per band");
  app.add_option("--figure", options.figure,
                 "bands over time, one quantity coloured by another, or all colour tables")
      ->capture_default_str()
      ->check(CLI::IsMember({"bands", "color", "tables"}));
  app.add_option("--color", options.colorName, "column that colours the figure \"color\"");
  app.add_option("--export", options.exports, "figure to write: .png, .pdf or .svg");
  app.add_option("--size", size, "size of the figure in points")->capture_default_str();
  app.add_option("--scale", options.scale, "pixels per point of a .png")
      ->capture_default_str()
      ->check(CLI::Range(0.01, 64.0));
  app.add_option("--theme", theme, "colours")
      ->capture_default_str()
      ->check(CLI::IsMember({"black", "white", "print"}));
  try {
    app.parse(argc, argv);
  } catch (const CLI::Success& request) {
    return app.exit(request);
  } catch (const CLI::ParseError& error) {
    complain(error.what());
    return kFailure;
  }
  const auto points = parsedSize(size);
  if (!points) {
    complain("--size: " + size + " is no size such as 960x720, of at most 32767 points each");
    return kFailure;
  }
  options.size = *points;
  if (options.exports.empty() && !canShowWindows()) {
    complain("--export is required, as no window can be shown");
    return kFailure;
  }
  options.theme = theme == "black"   ? vexel::PlotTheme::black
                  : theme == "print" ? vexel::PlotTheme::print
                                     : vexel::PlotTheme::white;
  return std::nullopt;
}

/// What the figure shows: a file, or the sample.
struct Source {
  std::string name;
  Table table;
  std::optional<ImpactSample> sample;
};

Source load(const Options& options) {
  if (!options.file) {
    ImpactSample sample = impactSample();
    return {kSampleName, sample.table, std::move(sample)};
  }
  CsvContent csv = readCsv(*options.file);
  for (const std::string& warning : csv.report.warnings()) complain(warning);
  return {*options.file, std::move(csv.table), std::nullopt};
}

std::unique_ptr<vexel::Vexel> bandFigure(const std::shared_ptr<vexel::NSView>& view,
                                         const Options& options, const Source& source) {
  const std::size_t time = timeColumn(source.table, options.timeName, source.name);
  if (!source.sample)
    return vexel::makePlot<ImpactFigure>(
        view, options.theme, bandsOf(source.table, time, options.valueNames, source.name));
  auto bands = bandsOf(*source.sample, time, options.valueNames, source.name);
  // Another quantity may stand in for the time, and then there are no days to point out.
  std::optional<Highlights> highlights;
  if (!options.timeName) highlights = highlightsOf(*source.sample, bands.front());
  return vexel::makePlot<ImpactFigure>(view, options.theme, std::move(bands), highlights);
}

std::unique_ptr<vexel::Vexel> colorFigure(const std::shared_ptr<vexel::NSView>& view,
                                          const Options& options, const Source& source) {
  const std::size_t time = timeColumn(source.table, options.timeName, source.name);
  std::optional<std::string> value;
  if (!options.valueNames.empty()) value = options.valueNames.front();
  ColoredSeries series = coloredSeries(source.table, time, value, options.colorName, source.name);
  return vexel::makePlot<ColorFigure>(view, options.theme, std::move(series.band),
                                      std::move(series.coding));
}

void exportTo(const std::vector<std::string>& files, vexel::NSView& view, double scale) {
  for (const std::string& file : files) vexel::exportFigure(view, file, scale);
}

void drawFigure(const Options& options) {
  if (options.figure == "tables") {
    const auto sheet = std::make_shared<TableSheet>(vexel::CGRect{{}, options.size}, options.theme);
    exportTo(options.exports, *sheet, options.scale);
    return;
  }
  const auto view = std::make_shared<vexel::PlotView>(vexel::CGRect{{}, options.size});
  const Source source = load(options);
  const auto figure = options.figure == "color" ? colorFigure(view, options, source)
                                                : bandFigure(view, options, source);
  figure->show();
  exportTo(options.exports, *view, options.scale);
}

}  // namespace

int main(int argc, char** argv) {
  Options options;
  if (const auto exitCode = parse(argc, argv, options)) return *exitCode;
  if (options.exports.empty())
    return runWindows(argc, argv,
                      {.file = options.file,
                       .timeName = options.timeName,
                       .bands = options.valueNames,
                       .colorName = options.colorName,
                       .theme = options.theme,
                       .size = options.size});
  try {
    drawFigure(options);
  } catch (const InputError& error) {
    complain(error.what());
    return kFailure;
  } catch (const vexel::FigureExportError& error) {
    complain(error.what());
    return kFailure;
  }
  return 0;
}
