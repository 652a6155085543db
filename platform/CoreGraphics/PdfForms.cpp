#include "PdfForms.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <map>
#include <memory>
#include <new>
#include <string_view>

#include <CoreGraphics/CGContextError.h>

#include "FileNumber.h"
#include "ZlibStream.h"

namespace vexel {

namespace {

constexpr std::string_view kStandIn = "stands in for ";
// Of compressed bytes at once.
constexpr std::size_t kPieceBytes = 1 << 16;

std::string stream(const std::string& entries, const std::string& content, ZlibStream& compressed) {
  std::string data;
  compressed.add(content, true, [&](std::string_view piece) { data += piece; });
  return "<< /Type /XObject /Subtype /Form " + entries + "/Filter /FlateDecode /Length " +
         std::to_string(data.size()) + " >>\nstream\n" + data + "\nendstream\nendobj\n";
}

// A form that covers the page, made for the place of an image, which is the unit square.
std::string form(const std::string& content, CGSize page, std::size_t resources,
                 ZlibStream& compressed) {
  std::string entries = "/BBox [ 0 0 ";
  appendNumber(entries, page.width, kMatrixDecimals);
  entries += ' ';
  appendNumber(entries, page.height, kMatrixDecimals);
  entries += " ] /Matrix [ ";
  appendNumber(entries, 1 / page.width, 12);
  entries += " 0 0 ";
  appendNumber(entries, 1 / page.height, 12);
  entries += " 0 0 ] /Resources " + std::to_string(resources) + " 0 R ";
  return stream(entries, content, compressed);
}

std::string object(std::size_t number) {
  return std::to_string(number) + " 0 obj\n";
}

// The place of `value` in `values`, where it is put if need be.
std::size_t placeOf(const std::string& value, std::vector<std::string>& values) {
  const auto known = std::ranges::find(values, value);
  const auto place = static_cast<std::size_t>(known - values.begin());
  if (known == values.end()) values.push_back(value);
  return place;
}

// What Cairo takes for a JPEG file of one pixel and passes on as it is: it ends in a name.
std::string standInFile(std::size_t number) {
  using namespace std::string_view_literals;
  std::string file(
      "\xff\xd8\xff\xc0\x00\x11\x08\x00\x01\x00\x01\x03"
      "\x01\x11\x00\x02\x11\x00\x03\x11\x00"sv);
  return file.append(kStandIn).append(std::to_string(number));
}

std::size_t numberAt(std::string_view text, std::size_t place) {
  std::size_t number = 0;
  if (place > text.size() ||
      std::from_chars(text.data() + place, text.data() + text.size(), number).ec != std::errc())
    throw CGContextError("The PDF file cannot be read again");
  return number;
}

std::size_t endOf(std::string_view text, std::string_view part, std::size_t from = 0) {
  const std::size_t found = text.find(part, from);
  if (found == std::string_view::npos) throw CGContextError("The PDF file cannot be read again");
  return found + part.size();
}

}  // namespace

std::string PdfForms::shape(const std::string& operators) {
  return "/s" + std::to_string(placeOf(operators, shapes_));
}

std::string PdfForms::opacity(double fill, double stroke) {
  std::string entries = "/ca ";
  appendNumber(entries, fill);
  entries += " /CA ";
  appendNumber(entries, stroke);
  return "/a" + std::to_string(placeOf(entries, opacities_));
}

CairoSurfaceHandle PdfForms::standInFor(std::string content) {
  CairoSurfaceHandle image(cairo_image_surface_create(CAIRO_FORMAT_RGB24, 1, 1));
  auto name = std::make_unique<std::string>(standInFile(contents_.size()));
  const auto* bytes = reinterpret_cast<const unsigned char*>(name->data());
  const auto release = [](void* held) { delete static_cast<std::string*>(held); };
  if (cairo_surface_set_mime_data(image.get(), CAIRO_MIME_TYPE_JPEG, bytes, name->size(), release,
                                  name.get()) != CAIRO_STATUS_SUCCESS)
    throw std::bad_alloc();
  static_cast<void>(name.release());
  contents_.push_back(std::move(content));
  return image;
}

std::string PdfForms::resources(std::size_t firstShape) const {
  std::string entries = "<< /XObject <<";
  for (std::size_t i = 0; i < shapes_.size(); ++i)
    entries += " /s" + std::to_string(i) + ' ' + std::to_string(firstShape + i) + " 0 R";
  entries += " >> /ExtGState <<";
  for (std::size_t i = 0; i < opacities_.size(); ++i)
    entries += " /a" + std::to_string(i) + " << " + opacities_[i] + " >>";
  return entries + " >> >>\nendobj\n";
}

std::string PdfForms::insertedInto(const std::string& pdf) const {
  if (contents_.empty()) return pdf;
  // The table of objects: their number, then for each its offset and "n", or "f" for none.
  const std::size_t table = numberAt(pdf, endOf(pdf, "startxref\n", pdf.rfind("startxref\n")));
  constexpr std::size_t kEntry = 20;
  const std::size_t start = endOf(pdf, "xref\n0 ", std::min(table, pdf.size()));
  const std::size_t count = numberAt(pdf, start);
  const std::size_t entries = endOf(pdf, "\n", start);
  if (count > pdf.size() / kEntry || entries + count * kEntry > pdf.size())
    throw CGContextError("The PDF file cannot be read again");
  std::map<std::size_t, std::size_t> objects;  // numbers by offsets
  for (std::size_t number = 1; number < count; ++number)
    if (const std::size_t entry = entries + number * kEntry; pdf[entry + 17] == 'n')
      objects.emplace(numberAt(pdf, pdf.find_first_not_of('0', entry)), number);
  if (objects.empty()) throw CGContextError("The PDF file cannot be read again");

  // Contents by the numbers of their objects. What the clip hides all of is not in the file.
  std::map<std::size_t, std::size_t> forms;
  for (std::size_t at = pdf.find(kStandIn); at != std::string::npos; at = pdf.find(kStandIn, at)) {
    const auto next = objects.upper_bound(at);
    at += kStandIn.size();
    const std::size_t content = numberAt(pdf, at);
    if (next == objects.begin() || content >= contents_.size())
      throw CGContextError("The PDF file cannot be read again");
    forms.emplace(std::prev(next)->second, content);
  }

  ZlibStream compressed(kPieceBytes);
  std::string result = pdf.substr(0, objects.begin()->first);
  std::vector<std::size_t> offsets(count + 1 + shapes_.size(), 0);
  for (auto at = objects.begin(); at != objects.end(); ++at) {
    const auto [offset, number] = *at;
    const std::size_t end = std::next(at) == objects.end() ? table : std::next(at)->first;
    offsets[number] = result.size();
    if (const auto found = forms.find(number); found != forms.end())
      result += object(number) + form(contents_[found->second], page_, count, compressed);
    else
      result.append(pdf, offset, end - offset);
  }
  offsets[count] = result.size();
  result += object(count) + resources(count + 1);
  for (std::size_t i = 0; i < shapes_.size(); ++i) {
    const std::size_t number = count + 1 + i;
    offsets[number] = result.size();
    result +=
        object(number) + stream("/BBox [ -32768 -32768 32767 32767 ] ", shapes_[i], compressed);
  }

  const std::size_t newTable = result.size();
  result += "xref\n0 " + std::to_string(offsets.size()) + "\n0000000000 65535 f \n";
  for (std::size_t number = 1; number < offsets.size(); ++number) {
    const std::string offset = std::to_string(offsets[number]);
    result += std::string(10 - std::min<std::size_t>(10, offset.size()), '0') + offset;
    result += offsets[number] == 0 ? " 00000 f \n" : " 00000 n \n";
  }
  // What else the trailer says stays as it is.
  const std::size_t rest = pdf.find_first_not_of("0123456789", endOf(pdf, "/Size ", entries));
  result += "trailer\n<< /Size " + std::to_string(offsets.size());
  result.append(pdf, rest, pdf.rfind("startxref\n") - rest);
  return result + "startxref\n" + std::to_string(newTable) + "\n%%EOF\n";
}

}  // namespace vexel
