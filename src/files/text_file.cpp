// Line-by-line text files: CR LF or LF read, CR LF written; locked, whole-or-
// nothing appends and replacement by rename.
#include "files/text_file.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <climits>
#include <cstring>
#include <filesystem>
#include <system_error>
#include <thread>

namespace velmora {
namespace {

constexpr size_t kReadChunk = size_t{1} << 16;
// How long a second writer waits for the first before it gives up.
constexpr auto kLockWait = std::chrono::seconds(2);

bool WriteAll(int fd, const char* data, size_t size) {
  size_t done = 0;
  while (done < size) {
    const ssize_t n = ::write(fd, data + done, size - done);
    if (n < 0 && errno == EINTR) continue;
    if (n <= 0) return false;
    done += static_cast<size_t>(n);
  }
  return true;
}

bool WriteAll(int fd, const std::string& text) { return WriteAll(fd, text.data(), text.size()); }

// Opens a regular file for reading. The type is looked at before the open so
// that a pipe never blocks and a device is never touched.
int OpenRegular(const std::string& path, int& error) {
  struct stat st {};
  if (::stat(path.c_str(), &st) != 0) {
    error = errno;
    return -1;
  }
  if (!S_ISREG(st.st_mode)) {
    error = kNotRegularFile;
    return -1;
  }
  const int fd = ::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC | O_NOCTTY);
  if (fd < 0) error = errno;
  if (fd >= 0 && (::fstat(fd, &st) != 0 || !S_ISREG(st.st_mode))) {
    ::close(fd);
    error = kNotRegularFile;
    return -1;
  }
  return fd;
}

// The file a path names, through any chain of symbolic links; a link to a
// missing file names that missing file.
std::string RealPath(std::string path) {
  for (int hops = 0; hops < 40; ++hops) {
    struct stat st {};
    if (path.empty() || ::lstat(path.c_str(), &st) != 0 || !S_ISLNK(st.st_mode)) return path;
    std::string target(PATH_MAX, '\0');
    const ssize_t n = ::readlink(path.c_str(), target.data(), target.size());
    if (n <= 0) return path;
    target.resize(static_cast<size_t>(n));
    const size_t slash = path.rfind('/');
    if (target[0] != '/' && slash != std::string::npos) target = path.substr(0, slash + 1) + target;
    path = target;
  }
  return path;  // a loop: the open reports it
}

std::string DirectoryOf(const std::string& file) {
  const size_t slash = file.rfind('/');
  if (slash == std::string::npos) return ".";
  return slash == 0 ? "/" : file.substr(0, slash);
}

// A file with no name, so that a crash cannot leave it behind; where the file
// system cannot make one, a named file beside the target.
int OpenTemporary(const std::string& file, std::string& name) {
  if (::access("/proc/self/fd", X_OK) == 0) {
    const int fd = ::open(DirectoryOf(file).c_str(), O_TMPFILE | O_WRONLY | O_CLOEXEC, 0600);
    if (fd >= 0 || (errno != EOPNOTSUPP && errno != EISDIR && errno != EINVAL)) return fd;
  }
  name = file + ".velmora-XXXXXX";
  return ::mkostemp(name.data(), O_CLOEXEC);
}

// Temporary files of this file that a crashed writer left: only the holder of
// the file's lock makes them, so while it is held none is in use.
void RemoveLeftovers(const std::string& file) {
  namespace fs = std::filesystem;
  const fs::path path(file);
  const std::string prefix = path.filename().string() + ".velmora-";
  std::error_code ec;
  fs::directory_iterator it(path.has_parent_path() ? path.parent_path() : fs::path("."), ec);
  for (; !ec && it != fs::directory_iterator(); it.increment(ec)) {
    const std::string name = it->path().filename().string();
    std::error_code ignored;
    if (name.rfind(prefix, 0) == 0 && it->is_regular_file(ignored)) fs::remove(it->path(), ignored);
  }
}

// Gives the nameless file a name beside the target, just before the rename.
bool LinkTemporary(int fd, const std::string& file, std::string& name) {
  const std::string proc = "/proc/self/fd/" + std::to_string(fd);
  for (int attempt = 0; attempt < 100; ++attempt) {
    name = file + ".velmora-" + std::to_string(::getpid()) + "-" + std::to_string(attempt);
    if (::linkat(AT_FDCWD, proc.c_str(), AT_FDCWD, name.c_str(), AT_SYMLINK_FOLLOW) == 0) return true;
    if (errno != EEXIST) break;
  }
  name.clear();
  return false;
}

// Opens the file to be locked, telling whether this call made it.
int OpenForLock(const std::string& path, bool create, bool& created) {
  constexpr int kFlags = O_RDWR | O_APPEND | O_CLOEXEC | O_NOCTTY | O_NONBLOCK;
  created = false;
  if (create) {
    const int fd = ::open(path.c_str(), kFlags | O_CREAT | O_EXCL, 0666);
    if (fd >= 0 || errno != EEXIST) {
      created = fd >= 0;
      return fd;
    }
  }
  const int fd = ::open(path.c_str(), kFlags);
  // A read-only file can still be replaced when its folder is writable.
  if (fd < 0 && errno == EACCES) return ::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NOCTTY | O_NONBLOCK);
  return fd;
}

bool StampOf(int fd, FileStamp& stamp) {
  struct stat st {};
  if (fd < 0 || ::fstat(fd, &st) != 0) return false;
  constexpr long long kNs = 1000000000;
  stamp.device = st.st_dev;
  stamp.inode = st.st_ino;
  stamp.size = st.st_size;
  stamp.modified = st.st_mtim.tv_sec * kNs + st.st_mtim.tv_nsec;
  stamp.changed = st.st_ctim.tv_sec * kNs + st.st_ctim.tv_nsec;
  return true;
}

bool SameFile(const struct stat& a, const struct stat& b) {
  return a.st_dev == b.st_dev && a.st_ino == b.st_ino;
}

}  // namespace

std::string FileErrorText(int error) {
  switch (error) {
    case kFileInUse:
      return "the file is in use by another program";
    case kNotRegularFile:
      return "not a regular file";
    case kLineTooLong:
      return "a line is longer than 1 MiB";
    default:
      return std::strerror(error);
  }
}

LineReader::LineReader(const std::string& path) { fd_ = OpenRegular(path, error_); }

LineReader::~LineReader() {
  if (fd_ >= 0) ::close(fd_);
}

bool LineReader::Fill() {
  if (ended_) return false;
  start_ += static_cast<long long>(buffer_.size());
  buffer_.resize(kReadChunk);
  ssize_t n;
  do {
    n = ::read(fd_, buffer_.data(), kReadChunk);
  } while (n < 0 && errno == EINTR);
  pos_ = 0;
  if (n <= 0) {
    if (n < 0) error_ = errno;
    ended_ = true;
    buffer_.clear();
    return false;
  }
  buffer_.resize(static_cast<size_t>(n));
  return true;
}

bool LineReader::ReadLine(std::string& line) {
  if (fd_ < 0 || error_ != 0) return false;
  line.clear();
  bool any = false;
  for (;;) {
    if (pos_ >= buffer_.size() && !Fill()) {
      if (error_ != 0) return false;
      break;  // a last line without its line end still counts
    }
    any = true;
    const size_t end = buffer_.find('\n', pos_);
    const size_t stop = end == std::string::npos ? buffer_.size() : end;
    if (line.size() + (stop - pos_) > kMaxLineLength) {
      error_ = kLineTooLong;
      return false;
    }
    line.append(buffer_, pos_, stop - pos_);
    pos_ = stop;
    if (end != std::string::npos) {
      ++pos_;
      break;
    }
  }
  if (!any) return false;
  if (!line.empty() && line.back() == '\r') line.pop_back();
  return true;
}

bool LineReader::Seek(long long offset) {
  if (fd_ < 0 || offset < 0 || ::lseek(fd_, static_cast<off_t>(offset), SEEK_SET) < 0) return false;
  buffer_.clear();
  pos_ = 0;
  start_ = offset;
  ended_ = false;
  error_ = 0;
  return true;
}

bool LineReader::Stamp(FileStamp& stamp) const { return StampOf(fd_, stamp); }

bool LineReader::AtEnd() { return fd_ < 0 || error_ != 0 || (pos_ >= buffer_.size() && !Fill()); }

LockedFile::LockedFile(const std::string& path, bool create) : real_(RealPath(path)) {
  const auto deadline = std::chrono::steady_clock::now() + kLockWait;
  for (;;) {
    struct stat st {};
    if (!real_.empty() && ::stat(real_.c_str(), &st) == 0 && !S_ISREG(st.st_mode)) {
      error_ = kNotRegularFile;
      return;
    }
    fd_ = OpenForLock(real_, create, created_);
    if (fd_ < 0) {
      error_ = errno;
      return;
    }
    while (::flock(fd_, LOCK_EX | LOCK_NB) != 0 && error_ == 0) {
      if (errno != EWOULDBLOCK && errno != EINTR) break;  // a file system without locks: write unlocked
      if (std::chrono::steady_clock::now() >= deadline) error_ = kFileInUse;
      std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    struct stat locked {};
    if (error_ == 0 && ::fstat(fd_, &locked) != 0) error_ = errno;
    if (error_ == 0 && !S_ISREG(locked.st_mode)) error_ = kNotRegularFile;
    // Replaced by its last writer while we waited: lock the new file.
    const bool replaced = error_ == 0 && (::stat(real_.c_str(), &st) != 0 || !SameFile(st, locked));
    if (error_ == 0 && !replaced) return;
    ::close(fd_);
    fd_ = -1;
    if (error_ != 0) return;
  }
}

FileStamp LockedFile::Stamp() const {
  FileStamp stamp;
  if (!StampOf(fd_, stamp)) stamp = FileStamp{};
  return stamp;
}

LockedFile::~LockedFile() {
  if (fd_ >= 0) ::close(fd_);
}

bool LockedFile::Fail(int error) {
  error_ = error;
  return false;
}

bool LockedFile::Replace(const std::string& contents) {
  struct stat st {};
  if (!ok()) return false;
  if (::fstat(fd_, &st) != 0) return Fail(errno);
  RemoveLeftovers(real_);
  std::string name;
  const int tmp = OpenTemporary(real_, name);
  if (tmp < 0) return Fail(errno);
  // Owner first: a change of owner clears set-id bits that the mode then restores.
  [[maybe_unused]] const int owned = ::fchown(tmp, st.st_uid, st.st_gid);
  bool good = WriteAll(tmp, contents) && ::fchmod(tmp, st.st_mode & 07777) == 0 && ::fsync(tmp) == 0;
  if (good && name.empty()) good = LinkTemporary(tmp, real_, name);
  if (good) good = ::rename(name.c_str(), real_.c_str()) == 0;
  const int saved = errno;
  if (good && !StampOf(tmp, replaced_)) replaced_ = FileStamp{};
  if (!good && !name.empty()) ::unlink(name.c_str());
  ::close(tmp);
  if (!good) return Fail(saved);
  created_ = false;
  return true;
}

bool LockedFile::Append(const std::string& contents) {
  struct stat st {};
  if (!ok()) return false;
  if (::fstat(fd_, &st) != 0) return Fail(errno);
  const off_t before = st.st_size;
  char last = '\n';
  if (before > 0 && ::pread(fd_, &last, 1, before - 1) != 1) return Fail(errno);
  const std::string lineEnd = last == '\n' ? "" : (last == '\r' ? "\n" : "\r\n");
  if (WriteAll(fd_, lineEnd) && WriteAll(fd_, contents)) return true;
  const int saved = errno;
  // Whole records or nothing: what got in is cut off again.
  [[maybe_unused]] const int cut = ::ftruncate(fd_, before);
  return Fail(saved);
}

void LockedFile::RemoveIfCreated() {
  struct stat st {};
  if (ok() && created_ && ::fstat(fd_, &st) == 0 && st.st_size == 0) ::unlink(real_.c_str());
  created_ = false;
}

long long LockedFile::Length() const {
  struct stat st {};
  return ok() && ::fstat(fd_, &st) == 0 ? static_cast<long long>(st.st_size) : -1;
}

bool LockedFile::CutBack(long long length) {
  return ok() && length >= 0 && ::ftruncate(fd_, static_cast<off_t>(length)) == 0;
}

bool WriteFileAtomically(const std::string& path, const std::string& contents, int* error) {
  LockedFile file(path, true);
  const bool ok = file.Replace(contents);
  if (!ok) file.RemoveIfCreated();
  if (error) *error = file.error();
  return ok;
}

bool AppendToFile(const std::string& path, const std::string& contents, int* error) {
  LockedFile file(path, true);
  const bool ok = file.Append(contents);
  if (!ok) file.RemoveIfCreated();
  if (error) *error = file.error();
  return ok;
}

bool ReadWholeFile(const std::string& path, std::string& contents, int* error) {
  int failure = 0;
  const int fd = OpenRegular(path, failure);
  contents.clear();
  char buffer[kReadChunk];
  for (ssize_t n = 0; fd >= 0 && failure == 0;) {
    n = ::read(fd, buffer, sizeof buffer);
    if (n < 0 && errno != EINTR) failure = errno;
    if (n == 0) break;
    if (n > 0) contents.append(buffer, static_cast<size_t>(n));
  }
  if (fd >= 0) ::close(fd);
  if (error) *error = failure;
  return failure == 0;
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
