#pragma once

#include <filesystem>
#include <string_view>

namespace vexel {

/// Writes a file of these bytes in place of the one that may be there, as a whole or not at all:
/// through a new file of a temporary name beside it. The permissions of the former file stay, and
/// one that may not be written to is not replaced. Links are followed. Something that is no plain
/// file, like a pipe, is written to: at the speed of its reader, and without one it is an error.
/// Throws std::filesystem::filesystem_error.
void replaceFile(const std::filesystem::path& file, std::string_view bytes);

}  // namespace vexel
