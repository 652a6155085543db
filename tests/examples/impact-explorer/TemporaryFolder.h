#pragma once

#include <stdlib.h>

#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <string>
#include <string_view>

namespace explorer {

/// A folder of its own for a test, removed with all it holds.
class TemporaryFolder {
 public:
  TemporaryFolder() {
    std::string name = std::filesystem::temp_directory_path() / "explorer-XXXXXX";
    if (!::mkdtemp(name.data())) throw std::runtime_error("no temporary folder");
    path_ = name;
  }
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;
  ~TemporaryFolder() { std::filesystem::remove_all(path_); }

  std::string path() const { return path_; }

  /// Writes a file and gives its path. An earlier file of that name goes first: file systems write
  /// files that are emptied and filled again to the disk at once, which takes long.
  std::string write(const std::string& name, std::string_view content) const {
    std::filesystem::remove(path_ / name);
    std::ofstream(path_ / name, std::ios::binary) << content;
    return path_ / name;
  }

 private:
  std::filesystem::path path_;
};

}  // namespace explorer
