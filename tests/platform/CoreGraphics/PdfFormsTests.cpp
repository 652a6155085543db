#include "PdfForms.h"

#include <CoreGraphics/CGContextError.h>
#include <gmock/gmock.h>
#include <isa-l/igzip_lib.h>

#include <random>
#include <string_view>

#include "PdfFiles.h"

namespace vexel {
namespace {

using testing::HasSubstr;
using testing::Not;

/// Content with one stand-in, and the file with it as the drawing library would write it.
struct Example {
  PdfForms forms{{200, 100}};
  std::string file;

  explicit Example(const std::string& content = "0 0 10 10 re f") {
    const CairoSurfaceHandle image = forms.standInFor(content);
    const unsigned char* data = nullptr;
    unsigned long length = 0;
    cairo_surface_get_mime_data(image.get(), CAIRO_MIME_TYPE_JPEG, &data, &length);
    file = "%PDF-1.4\n";
    const std::size_t first = file.size();
    file += "1 0 obj\n<< >>\nstream\n";
    file.append(reinterpret_cast<const char*>(data), length).append("\nendstream\nendobj\n");
    const std::size_t second = file.size();
    file += "2 0 obj\n<< /Type /Catalog >>\nendobj\n";
    const std::size_t table = file.size();
    file += "xref\n0 3\n0000000000 65535 f \n" + entry(first) + entry(second) +
            "trailer\n<< /Size 3\n   /Root 2 0 R\n>>\nstartxref\n" + std::to_string(table) +
            "\n%%EOF\n";
  }

  static std::string entry(std::size_t offset) {
    const std::string digits = std::to_string(offset);
    return std::string(10 - digits.size(), '0') + digits + " 00000 n \n";
  }
};

TEST(PdfForms, RefuseFilesThatAreNotBuiltAsKnown) {
  const Example example;
  const auto without = [&](std::string_view part) {
    std::string file = example.file;
    file.replace(file.find(part), part.size(), std::string(part.size(), '?'));
    return file;
  };
  for (const std::string& file :
       {std::string(), std::string("startxref\n"), std::string("startxref\n99999999999999999999\n"),
        std::string("startxref\n5\n"), without("startxref\n"), without("xref\n0 3"),
        without("/Size "), without("0000000009"), example.file.substr(0, example.file.size() - 30)})
    EXPECT_THROW(example.forms.insertedInto(file), CGContextError) << file;
  std::string otherName = example.file;
  otherName.replace(otherName.find("stands in for 0"), 15, "stands in for 7");
  EXPECT_THROW(example.forms.insertedInto(otherName), CGContextError);
}

TEST(PdfForms, LeaveAFileAsItIsWithoutContent) {
  EXPECT_EQ(PdfForms({10, 10}).insertedInto("anything"), "anything");
}

TEST(PdfForms, HoldContentOfAnySize) {
  for (const std::size_t size : {1u, 1u << 16, 1u << 20, (3u << 20) + 5}) {
    std::string content;
    std::mt19937 random(1);
    while (content.size() < size) content += static_cast<char>('0' + random() % 50);
    Example example(content);
    const std::string file = example.forms.insertedInto(example.file);
    const std::size_t length = file.find("/Length ") + 8;
    const std::size_t begin = file.find("stream\n", length) + 7;
    std::string compressed = file.substr(begin, std::stoul(file.substr(length)));
    EXPECT_EQ(file.substr(begin + compressed.size(), 11), "\nendstream\n");

    std::string result(content.size() + 1, '\0');
    inflate_state state;
    isal_inflate_init(&state);
    state.crc_flag = ISAL_ZLIB;
    state.next_in = reinterpret_cast<std::uint8_t*>(compressed.data());
    state.avail_in = static_cast<std::uint32_t>(compressed.size());
    state.next_out = reinterpret_cast<std::uint8_t*>(result.data());
    state.avail_out = static_cast<std::uint32_t>(result.size());
    EXPECT_EQ(isal_inflate(&state), ISAL_DECOMP_OK);
    result.resize(state.total_out);
    EXPECT_TRUE(result == content) << size;
  }
}

TEST(PdfForms, TakeThePlaceOfTheirStandIns) {
  Example example;
  EXPECT_EQ(example.forms.shape("1 1 m 2 2 l S"), "/s0");
  EXPECT_EQ(example.forms.shape("other"), "/s1");
  EXPECT_EQ(example.forms.shape("1 1 m 2 2 l S"), "/s0");
  EXPECT_EQ(example.forms.opacity(0.5, 1), "/a0");
  const std::string file = example.forms.insertedInto(example.file);
  expectTableOfObjects(file);
  EXPECT_THAT(file, HasSubstr("1 0 obj\n<< /Type /XObject /Subtype /Form /BBox [ 0 0 200 100 ] "
                              "/Matrix [ 0.005 0 0 0.01 0 0 ] /Resources 3 0 R "));
  EXPECT_THAT(file, HasSubstr("3 0 obj\n<< /XObject << /s0 4 0 R /s1 5 0 R >> /ExtGState << /a0 "
                              "<< /ca 0.5 /CA 1 >> >> >>\nendobj\n4 0 obj\n"));
  EXPECT_THAT(file, HasSubstr("<< /Size 6\n   /Root 2 0 R\n>>\nstartxref\n"));
  EXPECT_THAT(file, Not(HasSubstr("stands in")));
}

}  // namespace
}  // namespace vexel
