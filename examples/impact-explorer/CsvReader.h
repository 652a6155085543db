#pragma once

#include <cstddef>
#include <cstdint>
#include <exception>
#include <functional>
#include <string>

#include "CsvContent.h"

namespace explorer {

/// No row, and so no cell, of a file may be longer than this, in bytes.
inline constexpr std::size_t longestRow = std::size_t{1} << 20;

/// Reads a CSV file: UTF-8 text, with or without byte order mark, lines ending with LF, CRLF or CR.
/// Its first line that is not blank is the header. Cells are separated by commas; by semicolons
/// when the header has no comma, or by tabs when it has no semicolon either. Cells may be quoted,
/// and then hold separators and line breaks. Blank lines are skipped.
///
/// Column names lose the blanks around them, line breaks in them become spaces, an empty one
/// becomes "column <number>", and one that is taken gets " (2)", " (3)", ... behind it. Cells are
/// read by `cellValue`.
///
/// Throws InputError when the file cannot be read or is a folder, is empty or no text, has no
/// header (none at all, or numbers where names should be), a row longer than `longestRow`, a
/// quotation mark that is never closed, or no row with a number in it.
CsvContent readCsv(const std::string& file);

/// Is told now and then how many bytes have been read; false ends the reading.
using ReadWatch = std::function<bool(std::uint64_t bytes)>;

class ReadingEnded : public std::exception {};

/// The same, watched; throws ReadingEnded when the watch wants it.
CsvContent readCsv(const std::string& file, const ReadWatch& watch);

}  // namespace explorer
