#pragma once

#include <string>
#include <string_view>

namespace vexel {

/// An SVG file as Cairo writes it, made reproducible: names that hold numbers counted over the
/// whole process ("surface12", "image7") are counted from 0 in the file.
std::string rewrittenSvg(std::string_view svg);

}  // namespace vexel
