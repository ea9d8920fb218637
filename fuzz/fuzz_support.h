// What every harness shares: one private folder for the files it writes.
#pragma once

#include <stdlib.h>

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>

namespace velmora::fuzz {

// A folder of this process's own under TMPDIR, made at the first call and
// removed when the process exits normally (libFuzzer's time limit ends with
// exit). After a crash it stays behind with the input that caused it.
class PrivateFolder {
 public:
  static const PrivateFolder& Get() {
    static const PrivateFolder folder;
    return folder;
  }
  // The folder's path without a trailing slash; `File` names a file inside.
  const std::string& path() const { return path_; }
  std::string File(const std::string& name) const { return path_ + "/" + name; }

  // Writes `size` bytes as the whole file `name` in the folder.
  std::string Write(const std::string& name, const uint8_t* data, size_t size) const {
    const std::string file = File(name);
    std::FILE* f = std::fopen(file.c_str(), "wb");
    if (!f) std::abort();  // a harness that cannot write its input tests nothing
    if (size != 0 && std::fwrite(data, 1, size, f) != size) std::abort();
    if (std::fclose(f) != 0) std::abort();
    return file;
  }
  // Removes everything a previous input left in the folder.
  void Empty() const {
    std::error_code ec;
    for (const auto& entry : std::filesystem::directory_iterator(path_, ec))
      std::filesystem::remove_all(entry, ec);
  }

 private:
  PrivateFolder() {
    std::string pattern = (std::filesystem::temp_directory_path() / "velmora-fuzz-XXXXXX").string();
    if (!::mkdtemp(pattern.data())) std::abort();
    path_ = pattern;
  }
  ~PrivateFolder() {
    std::error_code ec;
    std::filesystem::remove_all(path_, ec);
  }

  std::string path_;
};

}  // namespace velmora::fuzz
