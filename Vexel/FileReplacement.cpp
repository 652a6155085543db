#include "FileReplacement.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <string>
#include <system_error>

namespace vexel {

namespace {

namespace fs = std::filesystem;

[[noreturn]] void fail(const fs::path& file, int error) {
  throw fs::filesystem_error("", file, std::error_code(error, std::generic_category()));
}

void writeAll(int descriptor, const fs::path& file, std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t written = ::write(descriptor, bytes.data(), bytes.size());
    if (written < 0 && errno == EINTR) continue;
    if (written < 0) fail(file, errno);
    bytes.remove_prefix(static_cast<std::size_t>(written));
  }
}

/// Writes and closes, also after a failure.
void writeAndClose(int descriptor, const fs::path& file, std::string_view bytes) {
  try {
    writeAll(descriptor, file, bytes);
  } catch (...) {
    ::close(descriptor);
    throw;
  }
  if (::close(descriptor) != 0) fail(file, errno);
}

}  // namespace

void replaceFile(const fs::path& file, std::string_view bytes) {
  const fs::path target = fs::is_symlink(file) ? fs::weakly_canonical(file) : file;
  const fs::file_status status = fs::status(target);
  if (fs::is_directory(status)) fail(file, EISDIR);
  if (fs::exists(status) && !fs::is_regular_file(status)) {
    const int descriptor = ::open(target.c_str(), O_WRONLY | O_CLOEXEC);
    if (descriptor < 0) fail(file, errno);
    writeAndClose(descriptor, file, bytes);
    return;
  }

  const fs::path temporary = target.string() + ".part" + std::to_string(::getpid());
  const int descriptor =
      ::open(temporary.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_NOFOLLOW | O_CLOEXEC, 0666);
  if (descriptor < 0) fail(file, errno);
  try {
    writeAndClose(descriptor, file, bytes);
    if (fs::exists(status)) fs::permissions(temporary, status.permissions());
    fs::rename(temporary, target);
  } catch (...) {
    ::unlink(temporary.c_str());
    throw;
  }
}

}  // namespace vexel
