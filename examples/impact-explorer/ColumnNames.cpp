#include "ColumnNames.h"

#include <string_view>
#include <unordered_map>
#include <unordered_set>

#include "Ascii.h"
#include "Excerpt.h"

namespace explorer {
namespace {

std::string onOneLine(std::string_view heading) {
  std::string name;
  for (const char c : withoutBlanks(heading)) {
    const bool breaks = c == '\r' || c == '\n' || c == '\t';
    if (!breaks)
      name += c;
    else if (!name.ends_with(' '))
      name += ' ';
  }
  return printable(withoutBlanks(name));
}

}  // namespace

std::vector<std::string> columnNames(const std::vector<std::string>& headings) {
  std::vector<std::string> names;
  for (const auto& heading : headings) {
    names.push_back(onOneLine(heading));
    if (names.back().empty()) names.back() = "column " + std::to_string(names.size());
  }

  std::unordered_set<std::string> taken;
  std::unordered_set<std::string> originals(names.begin(), names.end());
  std::unordered_map<std::string, std::size_t> lastNumber;
  for (auto& name : names) {
    if (taken.insert(name).second) continue;
    auto& number = lastNumber.try_emplace(name, 1).first->second;
    std::string candidate;
    do {
      candidate = name + " (" + std::to_string(++number) + ")";
    } while (originals.contains(candidate) || !taken.insert(candidate).second);
    name = std::move(candidate);
  }
  return names;
}

}  // namespace explorer
