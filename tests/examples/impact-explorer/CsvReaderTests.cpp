#include "CsvReader.h"

#include <unistd.h>

#include <chrono>
#include <clocale>
#include <cmath>
#include <cstdio>
#include <filesystem>
#include <limits>

#include <gmock/gmock.h>

#include "InputError.h"
#include "TemporaryFolder.h"

namespace explorer {
namespace {

using namespace std::string_literals;
using testing::ElementsAre;
using testing::HasSubstr;

constexpr double absent = std::numeric_limits<double>::quiet_NaN();

class CsvReader : public testing::Test {
 protected:
  CsvContent read(std::string_view content) const {
    return readCsv(folder_.write("a.csv", content));
  }

  /// The message without the name of the folder; "no error" when there was none.
  std::string errorOf(std::string_view content) const {
    return errorOfFile(folder_.write("a.csv", content));
  }

  std::string errorOfFile(const std::string& file) const {
    try {
      readCsv(file);
    } catch (const InputError& error) {
      EXPECT_EQ(error.location().file, file);
      const std::string message = error.what();
      EXPECT_EQ(message.find('\n'), std::string::npos) << message;
      const std::string folder = folder_.path() + "/";
      return message.starts_with(folder) ? message.substr(folder.size()) : message;
    }
    return "no error";
  }

  /// Likewise.
  std::vector<std::string> warningsOf(const CsvContent& content) const {
    std::vector<std::string> warnings;
    const std::string folder = folder_.path() + "/";
    for (const auto& warning : content.report.warnings()) {
      EXPECT_TRUE(warning.starts_with(folder)) << warning;
      warnings.push_back(warning.substr(folder.size()));
    }
    return warnings;
  }

  static std::vector<std::string> namesOf(const CsvContent& content) {
    std::vector<std::string> names;
    for (const auto& column : content.table.columns) names.push_back(column.name);
    return names;
  }

  TemporaryFolder folder_;
};

auto are(const std::vector<double>& values) {
  return testing::Pointwise(testing::NanSensitiveDoubleEq(), values);
}

TEST_F(CsvReader, FilesThatCannotBeReadAreNamed) {
  EXPECT_EQ(errorOfFile(folder_.path() + "/absent.csv"), "absent.csv: there is no such file");
  EXPECT_EQ(errorOfFile(folder_.path()), folder_.path() + ": is a folder");
  EXPECT_EQ(errorOfFile(folder_.path() + "/absent/a.csv"), "absent/a.csv: there is no such file");
  EXPECT_EQ(errorOfFile(""), ": there is no such file");
  const std::string file = folder_.write("a.csv", "a\n1\n");
  EXPECT_EQ(errorOfFile(file + "/b.csv"), "a.csv/b.csv: cannot be read: Not a directory");
  EXPECT_THAT(errorOfFile(std::string(5000, 'x')), HasSubstr("cannot be read: File name too long"));
}

TEST_F(CsvReader, FailuresWhileReadingAreNamed) {
  EXPECT_EQ(errorOfFile("/proc/self/mem"), "/proc/self/mem: cannot be read: Input/output error");
}

TEST_F(CsvReader, FilesWithoutPermissionAreNamed) {
  const std::string file = folder_.write("a.csv", "a\n1\n");
  std::filesystem::permissions(file, std::filesystem::perms::none);
  const auto readAsOrdinaryUser = [&] {
    constexpr uid_t nobody = 65534;
    if (geteuid() == 0 && (chdir(folder_.path().c_str()) != 0 || seteuid(nobody) != 0)) _exit(1);
    try {
      readCsv(file);
    } catch (const InputError& error) {
      std::fputs(error.what(), stderr);
      _exit(2);
    }
    _exit(0);
  };
  std::filesystem::permissions(folder_.path(), std::filesystem::perms::all);
  EXPECT_EXIT(readAsOrdinaryUser(), testing::ExitedWithCode(2),
              "a.csv: cannot be read: Permission denied");
}

TEST_F(CsvReader, FilesThatHoldNoTableAreRefusedWithTheirLine) {
  struct Case {
    std::string content;
    std::string error;
  };
  const Case cases[] = {
      {"", "a.csv: is empty"},
      {"\xEF\xBB\xBF", "a.csv: is empty"},
      {"\n", "a.csv: there is no header line"},
      {" \r\n\t\r\n\n", "a.csv: there is no header line"},
      {"\0"s, "a.csv:1: is not text: holds a zero byte"},
      {"a,b\n1,2\n3,\0"s, "a.csv:3: is not text: holds a zero byte"},
      {"\x89PNG\r\n\x1A\n\0\0\0\rIHDR"s, "a.csv:1: is not text: byte 0x89 is not UTF-8 here"},
      {"\xFF\xFE"
       "a\0,\0b\0"s,
       "a.csv:1: is not text: byte 0xFF is not UTF-8 here"},
      {"a,b\r\n1,2\r\n3,\xB5\r\n", "a.csv:3: is not text: byte 0xB5 is not UTF-8 here"},
      {"a\n1\n\xC3", "a.csv:3: is not text: ends within a character of UTF-8"},
      {"%PDF-1.4\n%\xE2\xE3\xCF\xD3\n", "a.csv:2: is not text: byte 0xE3 is not UTF-8 here"},
      {",", "a.csv:1: the header names no column"},
      {"\n\n;;;\n1;2;3;4\n", "a.csv:3: the header names no column"},
      {"\"\"\n1\n", "a.csv:1: the header names no column"},
      {"1,2\n3,4\n", "a.csv:1: there is no header: numbers where the column names should be"},
      {"\n1.5, ,nan\n3,4,5\n",
       "a.csv:2: there is no header: numbers where the column names should be"},
      {"a,b", "a.csv: there is no row below the header"},
      {"a,b\n\n  \n", "a.csv: there is no row below the header"},
      {"a,b\nx,y\n",
       "a.csv:2:1: no row can be read: 0 ragged rows, 2 unreadable cells in 1 others"},
      {"a,b\n1\n2,3,4\n",
       "a.csv:2: no row can be read: 2 ragged rows, 0 unreadable cells in 0 others"},
      {"a,b\n,\n , nan\n",
       "a.csv: no row can be read: 0 ragged rows, 0 unreadable cells in 2 others"},
      {"Just a line of prose\nand another one, with a comma\n",
       "a.csv:2: no row can be read: 1 ragged rows, 0 unreadable cells in 0 others"},
      {"a,b\n1,2\n3,\"4\n5,6\n", "a.csv:3: a quotation mark in this row is never closed"},
      {"\"a,b\n1,2\n", "a.csv:1: a quotation mark in this row is never closed"},
      {"a\n1\n\"", "a.csv:3: a quotation mark in this row is never closed"},
  };
  for (const auto& c : cases)
    EXPECT_EQ(errorOf(c.content), c.error) << testing::PrintToString(c.content);
}

TEST_F(CsvReader, RowsOfAbsurdLengthAreRefused) {
  const std::string tooLong = "the row is longer than 1 MiB; is a quotation mark not closed?";
  const std::string digits(longestRow + 1, '1');
  EXPECT_EQ(errorOf(digits), "a.csv:1: " + tooLong);
  EXPECT_EQ(errorOf("a\n1\n" + digits), "a.csv:3: " + tooLong);
  EXPECT_EQ(errorOf("a\n" + std::string(longestRow + 1, ' ')), "a.csv:2: " + tooLong);
  EXPECT_EQ(errorOf("a\n" + std::string(longestRow + 1, ',')), "a.csv:2: " + tooLong);
  EXPECT_EQ(errorOf(std::string(longestRow + 1, ',')), "a.csv:1: " + tooLong);

  std::string unclosed = "a,b\n1,2\n\"3,4\n";
  while (unclosed.size() < 2 * longestRow) unclosed += "5,6\n";
  EXPECT_EQ(errorOf(unclosed), "a.csv:3: " + tooLong);
}

TEST_F(CsvReader, LongRowsWithinTheLimitAreRead) {
  const std::string zeros(longestRow - 3, '0');
  EXPECT_THAT(read("a\n" + zeros + "7\n8\n").table.columns[0].values, ElementsAre(7, 8));

  std::string blankLines = "a\n";
  for (std::size_t i = 0; i < longestRow; ++i) blankLines += " \n";
  EXPECT_THAT(read(blankLines + "5\n").table.columns[0].values, ElementsAre(5));

  std::string header = "a";
  std::string row = "1";
  for (int i = 1; i < 200'000; ++i) header += ",a", row += ",1";
  EXPECT_EQ(read(header + "\n" + row + "\n").table.columns.size(), 200'000);
}

TEST_F(CsvReader, AHugeFileOfZerosIsRefusedAtOnce) {
  const std::string file = folder_.write("zeros.csv", "");
  std::filesystem::resize_file(file, std::uintmax_t{2} << 30);
  const auto start = std::chrono::steady_clock::now();
  EXPECT_EQ(errorOfFile(file), "zeros.csv:1: is not text: holds a zero byte");
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(1));
}

TEST_F(CsvReader, AnEndlessDeviceIsRefusedAtOnce) {
  EXPECT_EQ(errorOfFile("/dev/zero"), "/dev/zero:1: is not text: holds a zero byte");
  EXPECT_EQ(errorOfFile("/dev/null"), "/dev/null: is empty");
}

TEST_F(CsvReader, RaggedRowsAreLeftOutCountedAndNamed) {
  const auto content = read("a,b\n1,2\n3\n4,5,6\n7,8\n9,\n1,5,2,5\nx\n");
  EXPECT_THAT(content.table.columns[0].values, are({1, 7, 9}));
  EXPECT_THAT(content.table.columns[1].values, are({2, 8, absent}));
  EXPECT_EQ(content.report.rows, 3);
  EXPECT_EQ(content.report.raggedRows, 4);
  EXPECT_EQ(content.report.unreadableCells, 0);
  EXPECT_THAT(warningsOf(content),
              ElementsAre("a.csv:3: row left out: 1 cells where the header has 2",
                          "a.csv:4: row left out: 3 cells where the header has 2",
                          "a.csv:7: row left out: 4 cells where the header has 2",
                          "a.csv:8: row left out: 1 cells where the header has 2"));
}

TEST_F(CsvReader, UnreadableCellsAreAbsentCountedAndNamed) {
  const auto content = read("Julian date,Flux\n1,abc\n\n1e400,2\n3,0x10\n4,5\n");
  EXPECT_THAT(content.table.columns[0].values, are({1, absent, 3, 4}));
  EXPECT_THAT(content.table.columns[1].values, are({absent, 2, absent, 5}));
  EXPECT_EQ(content.report.rows, 4);
  EXPECT_EQ(content.report.raggedRows, 0);
  EXPECT_EQ(content.report.unreadableCells, 3);
  EXPECT_THAT(warningsOf(content),
              ElementsAre("a.csv:2:2: \"abc\" is no number, in column \"Flux\"",
                          "a.csv:4:1: \"1e400\" is no number, in column \"Julian date\"",
                          "a.csv:5:2: \"0x10\" is no number, in column \"Flux\""));
}

TEST_F(CsvReader, OnlyTheFirstFewComplaintsAreNamed) {
  std::string text = "a,b\n1,2\n";
  for (int i = 0; i < 1000; ++i) text += "x,y\nz\n";
  const auto content = read(text);
  EXPECT_EQ(content.report.raggedRows, 1000);
  EXPECT_EQ(content.report.unreadableCells, 2000);
  EXPECT_THAT(
      warningsOf(content),
      ElementsAre("a.csv:3:1: \"x\" is no number, in column \"a\"",
                  "a.csv:3:2: \"y\" is no number, in column \"b\"",
                  "a.csv:4: row left out: 1 cells where the header has 2",
                  "a.csv:5:1: \"x\" is no number, in column \"a\"",
                  "a.csv:5:2: \"y\" is no number, in column \"b\"",
                  "a.csv: in all 1000 ragged rows left out and 2000 unreadable cells left empty"));
}

TEST_F(CsvReader, ComplaintsKeepToOneShortLine) {
  const auto content = read("a\n1\n\"x\ny\x1B[31m\"\n" + std::string(1000, 'z') + "\n");
  EXPECT_THAT(
      warningsOf(content),
      ElementsAre("a.csv:3:1: \"x?y?[31m\" is no number, in column \"a\"",
                  "a.csv:5:1: \"" + std::string(40, 'z') + "...\" is no number, in column \"a\""));
}

TEST_F(CsvReader, UnreadableCellsOfRaggedRowsDoNotCount) {
  const auto content = read("a,b\n1,2\nx,y,z\n");
  EXPECT_EQ(content.report.raggedRows, 1);
  EXPECT_EQ(content.report.unreadableCells, 0);
}

TEST_F(CsvReader, LinesAreCountedAsAnEditorCountsThem) {
  struct Case {
    const char* text;
    std::size_t line;
  };
  const Case cases[] = {
      {"a,b\n1,2\nx,3\n", 3},
      {"a,b\r\n1,2\r\nx,3\r\n", 3},
      {"a,b\r1,2\rx,3\r", 3},
      {"a,b\r\n1,2\n\rx,3\n", 4},
      {"\n\r\n\ra,b\n1,2\n\n \n\r\nx,3", 9},
      {"\"a\n\n\",b\n1,2\nx,3\n", 5},
      {"a,b\n1,\"\r\n2\"\nx,\"\n\n3\"\n", 4},
      {"\uFEFFa,b\n1,2\nx,3", 3},
  };
  for (const auto& c : cases) {
    const auto content = read(c.text);
    ASSERT_FALSE(content.report.complaints.empty()) << c.text;
    EXPECT_EQ(content.report.complaints.back().location.line, c.line)
        << testing::PrintToString(c.text);
  }
}

TEST_F(CsvReader, LineEndsAndByteOrderMarkMakeNoDifference) {
  const Table expected{{{"a", {1, 3}}, {"b", {2, 4}}}};
  for (const char* text :
       {"a,b\n1,2\n3,4\n", "a,b\n1,2\n3,4", "a,b\r\n1,2\r\n3,4\r\n", "a,b\r\n1,2\r\n3,4",
        "a,b\r1,2\r3,4\r", "\uFEFFa,b\r\n1,2\r\n3,4\r\n", "\n\na,b\n\n1,2\n   \n3,4\n\n",
        " a , b \n 1 ,\t2\n3 , 4 \n", "\"a\",\"b\"\n\"1\",\" 2 \"\n3,\"4\"\n",
        "\xEF\xBB\xBF\"a\",b\n1,2\n3,4\n"})
    EXPECT_EQ(read(text).table, expected) << testing::PrintToString(text);
}

TEST_F(CsvReader, TheHeaderTellsTheSeparator) {
  struct Case {
    const char* text;
    std::vector<std::string> names;
    std::vector<double> row;
  };
  const Case cases[] = {
      {"a,b;c\td\n1,2\n", {"a", "b;c d"}, {1, 2}},
      {"a;b\tc\n1;2\n", {"a", "b c"}, {1, 2}},
      {"a;b\n1;2\n", {"a", "b"}, {1, 2}},
      {"a\tb\n1\t2\n", {"a", "b"}, {1, 2}},
      {"a\tb\tc\n1\t\t2\n", {"a", "b", "c"}, {1, absent, 2}},
      {"a\tb\n\t2\n", {"a", "b"}, {absent, 2}},
      {"a\n1\n", {"a"}, {1}},
      {"\"a,1\";b\n1;2\n", {"a,1", "b"}, {1, 2}},
      {"\n\n\"a\n,\"\tb\n1\t2\n", {"a ,", "b"}, {1, 2}},
      {"a \"\"x\"\";b\n1;2\n", {"a \"\"x\"\"", "b"}, {1, 2}},
  };
  for (const auto& c : cases) {
    const auto content = read(c.text);
    EXPECT_EQ(namesOf(content), c.names) << c.text;
    std::vector<double> row;
    for (const auto& column : content.table.columns) row.push_back(column.values.front());
    EXPECT_THAT(row, are(c.row)) << c.text;
  }
}

TEST_F(CsvReader, DecimalCommasAreNotNumbers) {
  const auto content = read("a;b\n1,5;2\n1.234,5;3\n");
  EXPECT_THAT(content.table.columns[0].values, are({absent, absent}));
  EXPECT_THAT(content.table.columns[1].values, are({2, 3}));
  EXPECT_EQ(content.report.unreadableCells, 2);
  const std::string before = std::setlocale(LC_ALL, nullptr);
  std::setlocale(LC_ALL, "de_DE.UTF-8");
  EXPECT_EQ(read("a;b\n1,5;2\n").report.unreadableCells, 1);
  std::setlocale(LC_ALL, before.c_str());
}

TEST_F(CsvReader, LinesThatBeginWithANumberSignAreRowsLikeOthers) {
  const auto content = read("# a,b\n#1,2\n# comment\n3,4\n");
  EXPECT_THAT(namesOf(content), ElementsAre("# a", "b"));
  EXPECT_THAT(content.table.columns[0].values, are({absent, 3}));
  EXPECT_EQ(content.report.raggedRows, 1);
  EXPECT_EQ(content.report.unreadableCells, 1);
}

TEST_F(CsvReader, QuotedCellsHoldSeparatorsQuotesAndLineBreaks) {
  const auto content = read("\"Speed,\r\n[\"\"km/s\"\"]\",\"b\nc\"\n\"1\n\",2\n\"3,4\",5\n");
  EXPECT_THAT(namesOf(content), ElementsAre("Speed, [\"km/s\"]", "b c"));
  EXPECT_THAT(content.table.columns[1].values, are({2, 5}));
  EXPECT_EQ(content.report.unreadableCells, 2);
}

TEST_F(CsvReader, NamesThatAreEmptyOrTakenAreMadeUsable) {
  EXPECT_THAT(namesOf(read("a,,a,\n1,2,3,4\n")), ElementsAre("a", "column 2", "a (2)", "column 4"));
  EXPECT_THAT(namesOf(read("2020,b\n1,2\n")), ElementsAre("2020", "b"));
}

TEST_F(CsvReader, EveryValueIsFiniteOrAbsent) {
  const auto content = read("a\n1e308\n-1e308\ninf\n-Infinity\n1e309\nnan\n1e-320\n");
  EXPECT_THAT(content.table.columns[0].values,
              are({1e308, -1e308, absent, absent, absent, absent, 1e-320}));
  EXPECT_EQ(content.report.unreadableCells, 3);
}

TEST_F(CsvReader, WhereTheFileIsCutIntoChunksMakesNoDifference) {
  for (const std::string lineEnd : {"\n", "\r\n", "\r"}) {
    std::string text = "a,\"b\xC2\xB5\"" + lineEnd;
    // Rows of 7 to 13 bytes let the ends of chunks fall everywhere.
    std::vector<double> expected;
    for (int i = 0; i < 60'000; ++i) {
      text += "\"" + std::to_string(i) + "\"," + (i % 7 ? "" : "\xE2\x82\xAC") + lineEnd;
      expected.push_back(i);
    }
    text += "x,1" + lineEnd;
    expected.push_back(absent);
    const auto content = read(text);
    EXPECT_THAT(content.table.columns[0].values, are(expected));
    EXPECT_EQ(content.report.raggedRows, 0);
    EXPECT_EQ(content.report.unreadableCells, 60'000 / 7 + 2);
    EXPECT_EQ(content.report.complaints.front().location.line, 2);
  }
}

TEST_F(CsvReader, LineNumbersStayRightInLongFiles) {
  for (const std::string lineEnd : {"\n", "\r\n", "\r"}) {
    for (std::size_t padding = 0; padding < 12; ++padding) {
      std::string text = "a" + lineEnd + std::string(padding, '0') + "1" + lineEnd;
      for (int i = 0; i < 30'000; ++i) text.append("22").append(lineEnd);
      const auto content = read(text.append("x").append(lineEnd));
      ASSERT_EQ(content.report.complaints.size(), 1);
      EXPECT_EQ(content.report.complaints[0].location.line, 30'003);
    }
  }
}

TEST_F(CsvReader, MutilatedFilesGiveATableOrAnError) {
  const std::string original =
      "\xEF\xBB\xBF"
      "Julian date,\"Flux, [1/day]\",c\r\n2459000.5,1e3,\"4\"\r\n\"2459001.5\",nan,\n";
  std::uint64_t random = 1;
  const auto next = [&random](std::size_t below) {
    random = random * 6364136223846793005u + 1442695040888963407u;
    return static_cast<std::size_t>(random >> 33) % below;
  };
  const std::string bytes = "\0\",;\t\r\n 1e.-n\xC2\xB5\xEF\xBB\xBFx"s;
  int tables = 0;
  int errors = 0;
  for (int i = 0; i < 3000; ++i) {
    std::string text = original;
    for (std::size_t changes = 1 + next(4); changes > 0; --changes) {
      const std::size_t at = next(text.size());
      switch (next(3)) {
        case 0:
          text[at] = bytes[next(bytes.size())];
          break;
        case 1:
          text.erase(at, 1 + next(8));
          break;
        default:
          text.insert(at, 1, bytes[next(bytes.size())]);
      }
      if (text.empty()) break;
    }
    try {
      const auto content = read(text);
      ++tables;
      for (const auto& column : content.table.columns) {
        ASSERT_EQ(column.values.size(), content.report.rows);
        ASSERT_FALSE(column.name.empty());
        for (const double value : column.values) ASSERT_FALSE(std::isinf(value));
      }
    } catch (const InputError& error) {
      ++errors;
      ASSERT_EQ(std::string(error.what()).find('\n'), std::string::npos);
    }
  }
  EXPECT_GT(tables, 300);
  EXPECT_GT(errors, 300);
}

}  // namespace
}  // namespace explorer
