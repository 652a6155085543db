#pragma once

#include <stdlib.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>
#include <stdexcept>
#include <string>

namespace vexel {

/// A folder of its own for a test, removed with all it holds.
class OutputFolder {
 public:
  OutputFolder() {
    std::string name = std::filesystem::temp_directory_path() / "vexel-tests-XXXXXX";
    if (!::mkdtemp(name.data())) throw std::runtime_error("no temporary folder");
    path_ = name;
  }
  ~OutputFolder() { std::filesystem::remove_all(path_); }
  OutputFolder(const OutputFolder&) = delete;
  OutputFolder& operator=(const OutputFolder&) = delete;

  const std::filesystem::path& path() const { return path_; }
  std::filesystem::path operator/(const std::string& name) const { return path_ / name; }

  void write(const std::string& name, const std::string& content) const {
    std::ofstream(path_ / name, std::ios::binary) << content;
  }
  std::string read(const std::string& name) const {
    std::ifstream file(path_ / name, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
  }

  /// The names of all that is in the folder.
  std::set<std::string> names() const {
    std::set<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(path_))
      names.insert(entry.path().filename());
    return names;
  }

 private:
  std::filesystem::path path_;
};

}  // namespace vexel
