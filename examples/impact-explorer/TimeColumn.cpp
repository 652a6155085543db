#include "TimeColumn.h"

#include <algorithm>
#include <cmath>
#include <string_view>

#include "Ascii.h"
#include "Excerpt.h"
#include "InputError.h"

namespace explorer {
namespace {

constexpr std::size_t mostNamesListed = 20;

std::string listOfNames(const Table& table) {
  std::string list;
  for (std::size_t i = 0; i < std::min(table.columns.size(), mostNamesListed); ++i)
    list += (i ? ", " : "") + excerpt(table.columns[i].name);
  if (table.columns.size() > mostNamesListed)
    list += " and " + std::to_string(table.columns.size() - mostNamesListed) + " more";
  return list;
}

bool isLetterOrDigit(char c) {
  return (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9');
}

bool hasWord(std::string_view text, std::string_view word) {
  for (auto at = text.find(word); at != std::string_view::npos; at = text.find(word, at + 1)) {
    const auto end = at + word.size();
    const bool begins = at == 0 || !isLetterOrDigit(text[at - 1]);
    if (begins && (end == text.size() || !isLetterOrDigit(text[end]))) return true;
  }
  return false;
}

bool saysJulianDay(const Column& column) {
  const std::string name = lowerCase(column.name);
  return name.find("julian da") != std::string::npos || hasWord(name, "jd");
}

bool saysJulian(const Column& column) {
  return lowerCase(column.name).find("julian") != std::string::npos;
}

std::optional<std::size_t> firstColumn(const Table& table, auto condition) {
  const auto found = std::ranges::find_if(table.columns, condition);
  if (found == table.columns.end()) return std::nullopt;
  return found - table.columns.begin();
}

}  // namespace

std::size_t columnNamed(const Table& table, const std::string& name, const std::string& file) {
  if (const auto same = firstColumn(table, [&](const Column& c) { return c.name == name; }))
    return *same;
  const std::string wanted = lowerCase(withoutBlanks(name));
  if (const auto alike =
          firstColumn(table, [&](const Column& c) { return lowerCase(c.name) == wanted; }))
    return *alike;
  throw InputError({file},
                   "there is no column " + excerpt(name) + "; there are " + listOfNames(table));
}

std::size_t timeColumn(const Table& table, const std::optional<std::string>& requested,
                       const std::string& file) {
  auto found = requested ? columnNamed(table, *requested, file) : firstColumn(table, saysJulianDay);
  if (!found) found = firstColumn(table, saysJulian);
  if (!found)
    throw InputError({file},
                     "there is no time column, such as \"Julian date\" or \"JD\"; choose one with "
                     "--x from " +
                         listOfNames(table));
  const Column& column = table.columns[*found];
  if (!std::ranges::any_of(column.values, [](double v) { return std::isfinite(v); }))
    throw InputError({file}, "the time column " + excerpt(column.name) + " holds no number");
  return *found;
}

}  // namespace explorer
