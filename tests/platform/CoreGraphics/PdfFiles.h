#pragma once

#include <gtest/gtest.h>

#include <cstdlib>
#include <string>

namespace vexel {

/// Whether a PDF file tells truly where its objects are.
inline void expectTableOfObjects(const std::string& pdf) {
  const std::size_t start = pdf.rfind("startxref\n");
  ASSERT_NE(start, std::string::npos);
  const std::size_t table = std::strtoul(pdf.c_str() + start + 10, nullptr, 10);
  ASSERT_EQ(pdf.compare(table, 7, "xref\n0 "), 0);
  const std::size_t count = std::strtoul(pdf.c_str() + table + 7, nullptr, 10);
  ASSERT_GT(count, 1u);
  const std::size_t entries = pdf.find('\n', table + 7) + 1;
  for (std::size_t number = 1; number < count; ++number) {
    const std::string name = std::to_string(number) + " 0 obj";
    const std::size_t offset = std::strtoul(pdf.c_str() + entries + 20 * number, nullptr, 10);
    EXPECT_EQ(pdf.compare(offset, name.size(), name), 0) << number;
  }
  EXPECT_EQ(pdf.compare(entries + 20 * count, 7, "trailer"), 0);
  const std::size_t size = pdf.find("/Size ", entries);
  EXPECT_EQ(std::strtoul(pdf.c_str() + size + 6, nullptr, 10), count);
}

}  // namespace vexel
