#include "CsvReader.h"

#include <csv.h>
#include <fmt/format.h>
#include <string.h>

#include <array>
#include <cerrno>
#include <cstdio>
#include <exception>
#include <filesystem>
#include <memory>
#include <new>
#include <string_view>
#include <system_error>
#include <utility>

#include "CsvTableBuilder.h"
#include "InputError.h"
#include "TextCheck.h"

namespace explorer {
namespace {

constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";

/// The separator that the header at the beginning of `text` uses.
char separatorOf(std::string_view text) {
  bool quoted = false;
  bool semicolon = false;
  bool tab = false;
  const auto start = text.find_first_not_of(" \t\r\n");
  for (const char c : text.substr(start == std::string_view::npos ? text.size() : start)) {
    if (c == '"') quoted = !quoted;
    if (quoted) continue;
    if (c == '\r' || c == '\n') break;
    if (c == ',') return ',';
    if (c == ';') semicolon = true;
    if (c == '\t') tab = true;
  }
  if (semicolon) return ';';
  return tab ? '\t' : ',';
}

/// A file that is read in chunks.
class ChunkedFile {
 public:
  explicit ChunkedFile(const std::string& name) : name_(name) {
    std::error_code ignored;
    if (std::filesystem::is_directory(name, ignored)) throw InputError({name}, "is a folder");
    file_.reset(std::fopen(name.c_str(), "rb"));
    if (!file_) fail(errno);
  }

  /// The next bytes, valid until the next call; empty at the end of the file.
  std::string_view next() {
    const std::size_t size = std::fread(chunk_.data(), 1, chunk_.size(), file_.get());
    if (size < chunk_.size() && std::ferror(file_.get())) fail(errno);
    return {chunk_.data(), size};
  }

 private:
  struct Close {
    void operator()(std::FILE* file) const { std::fclose(file); }
  };

  [[noreturn]] void fail(int error) const {
    if (error == ENOENT) throw InputError({name_}, "there is no such file");
    // In English like the rest of the line.
    const char* reason = ::strerrordesc_np(error);
    throw InputError({name_},
                     fmt::format("cannot be read: {}", reason ? reason : "unknown reason"));
  }

  std::string name_;
  std::unique_ptr<std::FILE, Close> file_;
  std::array<char, 1 << 16> chunk_;
};

/// libcsv's parser, handing cells and ends of rows to a handler. Exceptions of the handler pass
/// around the C frames.
template <class Handler>
class Parser {
 public:
  Parser(char separator, Handler& handler) : handler_(handler) {
    if (csv_init(&parser_, 0) != 0) throw std::bad_alloc();
    csv_set_delim(&parser_, static_cast<unsigned char>(separator));
    csv_set_blk_size(&parser_, 4096);
  }
  Parser(const Parser&) = delete;
  Parser& operator=(const Parser&) = delete;
  ~Parser() { csv_free(&parser_); }

  void feed(std::string_view text) {
    const std::size_t taken =
        csv_parse(&parser_, text.data(), text.size(), &Parser::cell, &Parser::endOfRow, this);
    rethrow();
    if (taken != text.size()) throw std::bad_alloc();
  }

  /// Ends the text. False when it ends within quotation marks.
  bool finish() {
    csv_set_opts(&parser_, CSV_STRICT | CSV_STRICT_FINI);
    const int result = csv_fini(&parser_, &Parser::cell, &Parser::endOfRow, this);
    rethrow();
    return result == 0;
  }

 private:
  static void cell(void* text, std::size_t size, void* self) {
    static_cast<Parser*>(self)->guard([&](Handler& handler) {
      handler.cell(text ? std::string_view(static_cast<const char*>(text), size)
                        : std::string_view());
    });
  }

  static void endOfRow(int, void* self) {
    static_cast<Parser*>(self)->guard([](Handler& handler) { handler.endOfRow(); });
  }

  template <class Call>
  void guard(Call call) noexcept {
    if (failure_) return;
    try {
      call(handler_);
    } catch (...) {
      failure_ = std::current_exception();
    }
  }

  void rethrow() {
    if (failure_) std::rethrow_exception(std::exchange(failure_, nullptr));
  }

  Handler& handler_;
  csv_parser parser_;
  std::exception_ptr failure_;
};

/// Feeds the parser line by line, which is how rows come to know their lines.
class Reading {
 public:
  Reading(const std::string& file, char separator)
      : file_(file), separator_(separator), builder_(file), parser_(separator, *this) {}

  void feed(std::string_view text) {
    while (!text.empty()) {
      const auto lineBreak = text.find_first_of("\r\n");
      const auto size = lineBreak == std::string_view::npos ? text.size() : lineBreak + 1;
      feedWithinLine(text.substr(0, size));
      text.remove_prefix(size);
    }
  }

  CsvContent finish() {
    if (!check_.endsWhole()) throw notText("ends within a character of UTF-8");
    if (!parser_.finish())
      throw InputError({file_, rowLine_}, "a quotation mark in this row is never closed");
    return std::move(builder_).finish();
  }

  void cell(std::string_view text) { builder_.addCell(text); }

  void endOfRow() {
    builder_.endRow(rowLine_);
    inRow_ = false;
  }

 private:
  /// `piece` holds no line break, or one at its end.
  void feedWithinLine(std::string_view piece) {
    if (const auto fault = check_.feed(piece)) throw notText(*fault);
    if (!inRow_ && !isBlank(piece)) {
      inRow_ = true;
      rowLine_ = line_;
    }
    rowSize_ += piece.size();
    if (rowSize_ > longestRow)
      throw InputError({file_, inRow_ ? rowLine_ : line_},
                       "the row is longer than 1 MiB; is a quotation mark not closed?");
    parser_.feed(piece);
    countLines(piece);
    const bool lineEnded = piece.back() == '\n' || piece.back() == '\r';
    if (lineEnded && !inRow_) rowSize_ = 0;
  }

  void countLines(std::string_view piece) {
    const bool secondOfTwo = piece == "\n" && afterCarriageReturn_;
    afterCarriageReturn_ = piece.back() == '\r';
    if ((piece.back() == '\n' && !secondOfTwo) || afterCarriageReturn_) ++line_;
  }

  bool isBlank(std::string_view piece) const {
    for (const char c : piece)
      if (c == separator_ || (c != ' ' && c != '\t' && c != '\r' && c != '\n')) return false;
    return true;
  }

  InputError notText(const std::string& fault) const {
    return {{file_, line_}, "is not text: " + fault};
  }

  std::string file_;
  char separator_;
  CsvTableBuilder builder_;
  Parser<Reading> parser_;
  TextCheck check_;
  std::size_t line_ = 1;
  bool afterCarriageReturn_ = false;
  bool inRow_ = false;
  std::size_t rowLine_ = 1;
  std::size_t rowSize_ = 0;
};

}  // namespace

CsvContent readCsv(const std::string& file) {
  return readCsv(file, [](std::uint64_t) { return true; });
}

CsvContent readCsv(const std::string& file, const ReadWatch& watch) {
  ChunkedFile source(file);
  std::string_view chunk = source.next();
  if (chunk.starts_with(byteOrderMark)) chunk.remove_prefix(byteOrderMark.size());
  if (chunk.empty()) throw InputError({file}, "is empty");

  Reading reading(file, separatorOf(chunk));
  for (std::uint64_t bytes = 0; !chunk.empty(); chunk = source.next()) {
    reading.feed(chunk);
    bytes += chunk.size();
    if (!watch(bytes)) throw ReadingEnded();
  }
  return reading.finish();
}

}  // namespace explorer
