#include "PlotColorTable.h"

#include <string>

#include <CocoaLumberjack/DDLog.h>
#include <Foundation/FatalError.h>

namespace vexel {

namespace {

constexpr std::int64_t kDefaultTable = 13;

struct Family {
  std::string_view key;
  std::string_view nameInLog;
  const ColorTableFamily& (*tables)();
};

// In the order in which keys are compared.
constexpr Family kFamilies[] = {
    {"gmt", "GMT", gmtColorTables},    {"brewer", "Brewer", brewerColorTables},
    {"qorm", "Qorm", qormColorTables}, {"xan", "Xan", xanColorTables},
    {"IDL", "IDL", idlColorTables},
};

/// How messages from a line of a function begin.
std::string place(std::string_view function, std::uint32_t line) {
  return "PlotColorTable." + std::string(function) + ":" + std::to_string(line) + " ";
}

/// Logs as from that function and the line of the call; `makeText` gives what follows the place.
template <class MakeText>
void log(DDLogFlag flag, std::string_view function, MakeText makeText,
         std::uint32_t line = __builtin_LINE()) {
  ddLog(
      flag, [&] { return place(function, line) + makeText(); }, __builtin_FILE(), function, line);
}

std::string numbered(std::string_view family, std::int64_t number) {
  return std::string(family) + " #" + std::to_string(number);
}

const ColorTable* find(const ColorTableFamily& tables, std::int64_t number) {
  const auto found = tables.find(number);
  return found == tables.end() ? nullptr : &found->second;
}

}  // namespace

PlotColorTable::PlotColorTable(std::int64_t ct, std::string_view family) {
  constexpr std::string_view kFunction = "init(ct:family:)";
  for (const Family& known : kFamilies) {
    if (known.key != family) continue;
    const ColorTable* table = find(known.tables(), ct);
    if (!table) break;
    log(DDLogFlag::debug, kFunction,
        [&] { return "Loaded color table " + numbered(known.nameInLog, ct); });
    convert(*table);
    return;
  }
  log(DDLogFlag::error, kFunction,
      [&] { return "Undefined color table " + numbered(family, ct) + " - load default"; });
  loadDefaultTable();
}

void PlotColorTable::loadDefaultTable() {
  constexpr std::string_view kFunction = "loadDefaultTable()";
  const std::string name = numbered("IDL", kDefaultTable);
  const ColorTable* table = find(idlColorTables(), kDefaultTable);
  if (!table)
    fatalError(place(kFunction, __LINE__) + "Default color table " + name + " does not exist!");
  log(DDLogFlag::debug, kFunction, [&] { return "Loaded default color table " + name; });
  convert(*table);
}

void PlotColorTable::convert(const ColorTable& table) {
  colors_.reserve(table.size());
  entries_.reserve(table.size());
  for (const ColorTableEntry& entry : table) {
    if (entry.size() < 3) fatalError("PlotColorTable: an entry needs three components");
    entries_.push_back(entry);
    colors_.push_back(NSColor::colorWithRed(entry[0] / 255, entry[1] / 255, entry[2] / 255, 1.0));
  }
}

}  // namespace vexel
