// Helpers shared by the tests: temporary folders and small files.
#pragma once

#include <filesystem>
#include <fstream>
#include <string>

#include "files/text_file.h"

namespace velmora::test {

// A fresh folder removed again when the object goes out of scope.
class TempDir {
 public:
  TempDir() {
    std::string pattern = (std::filesystem::temp_directory_path() / "velmora-test-XXXXXX").string();
    path_ = ::mkdtemp(pattern.data()) ? pattern : std::string();
  }
  ~TempDir() {
    std::error_code ec;
    std::filesystem::permissions(path_, std::filesystem::perms::owner_all, ec);
    std::filesystem::remove_all(path_, ec);
  }
  TempDir(const TempDir&) = delete;
  TempDir& operator=(const TempDir&) = delete;
  const std::string& path() const { return path_; }
  std::string File(const std::string& name) const { return path_ + "/" + name; }
  std::string Write(const std::string& name, const std::string& contents) const {
    std::ofstream(File(name), std::ios::binary) << contents;
    return File(name);
  }
  std::string Read(const std::string& name) const {
    std::string contents;
    ReadWholeFile(File(name), contents);
    return contents;
  }

 private:
  std::string path_;
};

inline std::string SampleFile() { return std::string(VELMORA_TEST_DATA_DIR) + "/sample.vlm"; }

}  // namespace velmora::test
