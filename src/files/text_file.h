// Line-by-line text files: CR LF or LF read, CR LF written, safe replacement.
#pragma once

#include <fstream>
#include <string>
#include <vector>

namespace velmora {

class LineReader {
 public:
  explicit LineReader(const std::string& path);
  bool IsOpen() const { return open_; }
  // Next line without its line end; false at end of file.
  bool ReadLine(std::string& line);
  bool AtEnd();

 private:
  std::ifstream in_;
  bool open_ = false;
};

// Replaces a file's contents: writes a temporary file beside it, then renames
// it over the target, so a crash leaves either the old or the new contents.
bool WriteFileAtomically(const std::string& path, const std::string& contents);
// Appends in one write so a record is never left half-written by this process.
bool AppendToFile(const std::string& path, const std::string& contents);
bool ReadWholeFile(const std::string& path, std::string& contents);
bool FileExists(const std::string& path);
// Size in bytes, or -1 when the file cannot be measured.
long long FileLength(const std::string& path);

// Lines of a text in CR LF form ("a\r\nb\r\n").
std::string JoinLines(const std::vector<std::string>& lines);

}  // namespace velmora
