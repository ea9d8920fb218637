// Line-by-line text files: CR LF or LF read, CR LF written, safe replacement.
#include "files/text_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdio>
#include <filesystem>
#include <system_error>

namespace velmora {

LineReader::LineReader(const std::string& path) {
  std::error_code ec;
  if (path.empty() || std::filesystem::is_directory(path, ec)) return;
  in_.open(path, std::ios::binary);
  open_ = in_.is_open();
}

bool LineReader::ReadLine(std::string& line) {
  if (!open_ || !std::getline(in_, line)) return false;
  if (!line.empty() && line.back() == '\r') line.pop_back();
  return true;
}

bool LineReader::AtEnd() { return !open_ || in_.peek() == std::ifstream::traits_type::eof(); }

namespace {

bool WriteAll(int fd, const std::string& contents) {
  size_t done = 0;
  while (done < contents.size()) {
    const ssize_t n = ::write(fd, contents.data() + done, contents.size() - done);
    if (n < 0) return false;
    done += static_cast<size_t>(n);
  }
  return true;
}

}  // namespace

bool WriteFileAtomically(const std::string& path, const std::string& contents) {
  std::error_code ec;
  if (path.empty() || std::filesystem::is_directory(path, ec)) return false;
  std::string temp = path + ".XXXXXX";
  const int fd = ::mkstemp(temp.data());
  if (fd < 0) return false;
  bool ok = WriteAll(fd, contents) && ::fsync(fd) == 0;
  // Keep the permissions an ordinary new file would get.
  const mode_t mask = ::umask(0);
  ::umask(mask);
  ::fchmod(fd, 0666 & ~mask);
  ok = (::close(fd) == 0) && ok;
  if (ok) ok = std::rename(temp.c_str(), path.c_str()) == 0;
  if (!ok) std::remove(temp.c_str());
  return ok;
}

bool AppendToFile(const std::string& path, const std::string& contents) {
  std::error_code ec;
  if (path.empty() || std::filesystem::is_directory(path, ec)) return false;
  const int fd = ::open(path.c_str(), O_WRONLY | O_CREAT | O_APPEND, 0666);
  if (fd < 0) return false;
  const bool ok = WriteAll(fd, contents);
  return (::close(fd) == 0) && ok;
}

bool ReadWholeFile(const std::string& path, std::string& contents) {
  std::error_code ec;
  if (path.empty() || std::filesystem::is_directory(path, ec)) return false;
  std::ifstream in(path, std::ios::binary);
  if (!in) return false;
  contents.assign(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
  return !in.bad();
}

bool FileExists(const std::string& path) {
  std::error_code ec;
  return !path.empty() && std::filesystem::is_regular_file(path, ec);
}

long long FileLength(const std::string& path) {
  std::error_code ec;
  if (!FileExists(path)) return -1;
  const auto size = std::filesystem::file_size(path, ec);
  return ec ? -1 : static_cast<long long>(size);
}

std::string JoinLines(const std::vector<std::string>& lines) {
  std::string out;
  for (const auto& line : lines) {
    out += line;
    out += "\r\n";
  }
  return out;
}

}  // namespace velmora
