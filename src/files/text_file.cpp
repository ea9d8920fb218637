// Line-by-line text files: CR LF or LF read, CR LF written; locked, whole-or-
// nothing appends and replacement by rename.
#include "files/text_file.h"

#include <fcntl.h>
#include <signal.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cctype>
#include <cerrno>
#include <chrono>
#include <climits>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <system_error>
#include <thread>

namespace velmora {
namespace {

constexpr size_t kReadChunk = size_t{1} << 16;
// How long a second writer waits for the first before it gives up.
constexpr auto kLockWait = std::chrono::seconds(2);

// The pieces `produce` hands over, written to `fd`; a producer that gives up
// without a write having failed leaves ECANCELED.
bool WritePieces(int fd, const TextPieces& produce) {
  bool written = true;
  errno = 0;
  const bool done = produce([fd, &written](std::string_view piece) { return written = WriteAll(fd, piece); });
  if (!done && written) errno = ECANCELED;
  return done && written;
}

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

std::string DirectoryOf(const std::string& file) {
  const size_t slash = file.rfind('/');
  if (slash == std::string::npos) return ".";
  return slash == 0 ? "/" : file.substr(0, slash);
}

// The rule the system applies to links in shared folders, applied here since
// the links are resolved by hand: in a folder that is sticky and
// world-writable (like /tmp) only the links of the folder's owner and of this
// user are followed, so another user cannot point this program's writes at
// a file of its user's.
bool MayFollow(const std::string& link, const struct stat& st) {
  struct stat folder {};
  if (::stat(DirectoryOf(link).c_str(), &folder) != 0) return false;
  const bool shared = (folder.st_mode & S_ISVTX) != 0 && (folder.st_mode & S_IWOTH) != 0;
  return !shared || st.st_uid == ::geteuid() || st.st_uid == folder.st_uid;
}

// The file a path names, through any chain of symbolic links; a link to a
// missing file names that missing file. 0, or kForeignLink.
int RealPath(std::string path, std::string& real) {
  real = path;
  for (int hops = 0; hops < 40; ++hops) {
    struct stat st {};
    if (path.empty() || ::lstat(path.c_str(), &st) != 0 || !S_ISLNK(st.st_mode)) break;
    if (!MayFollow(path, st)) return kForeignLink;
    std::string target(PATH_MAX, '\0');
    const ssize_t n = ::readlink(path.c_str(), target.data(), target.size());
    if (n <= 0) break;
    target.resize(static_cast<size_t>(n));
    const size_t slash = path.rfind('/');
    if (target[0] != '/' && slash != std::string::npos) target = path.substr(0, slash + 1) + target;
    path = target;
    real = path;
  }
  return 0;  // a loop stays a link, which the open refuses
}

// Temporary files are named after the target, cut short so that the name
// fits whatever the target's length (a name has at most 255 bytes), and
// hidden: ".puzzles.vlm.velmora-PID-N".
std::string TemporaryPrefix(const std::string& file) {
  const size_t slash = file.rfind('/');
  std::string name = file.substr(slash == std::string::npos ? 0 : slash + 1);
  if (name.size() > 100) {
    size_t cut = 100;
    while (cut > 0 && (static_cast<unsigned char>(name[cut]) & 0xC0) == 0x80) --cut;  // whole characters
    name.resize(cut);
  }
  return "." + name + ".velmora-";
}

std::string TemporaryName(const std::string& file, int attempt) {
  const std::string folder = DirectoryOf(file);
  return (folder == "/" ? "" : folder) + "/" + TemporaryPrefix(file) + std::to_string(::getpid()) + "-" +
         std::to_string(attempt);
}

// Whether the writer named in a temporary file's name ("...-PID-N") still runs.
bool WriterRuns(const std::string& name, size_t prefixLength) {
  const std::string rest = name.substr(prefixLength);
  const size_t dash = rest.find('-');
  if (dash == 0 || dash == std::string::npos || rest.find_first_not_of("0123456789") != dash) return false;
  const long pid = std::strtol(rest.c_str(), nullptr, 10);
  return pid > 0 && pid <= INT_MAX && (::kill(static_cast<pid_t>(pid), 0) == 0 || errno == EPERM);
}

// A file with no name, so that a crash cannot leave it behind; where the file
// system cannot make one, a named file beside the target. Read-write, so that
// a new file can be appended to later.
int OpenTemporary(const std::string& file, std::string& name, mode_t mode) {
  name.clear();
  if (::access("/proc/self/fd", X_OK) == 0) {
    const int fd = ::open(DirectoryOf(file).c_str(), O_TMPFILE | O_RDWR | O_CLOEXEC, mode);
    if (fd >= 0 || (errno != EOPNOTSUPP && errno != EISDIR && errno != EINVAL)) return fd;
  }
  for (int attempt = 0; attempt < 100; ++attempt) {
    name = TemporaryName(file, attempt);
    const int fd = ::open(name.c_str(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC | O_NOFOLLOW, mode);
    if (fd >= 0 || errno != EEXIST) return fd;
  }
  return -1;
}

// Temporary files of this file that a crashed writer left: its process is
// gone. (Two long names cut to one prefix may share them.)
void RemoveLeftovers(const std::string& file) {
  namespace fs = std::filesystem;
  const std::string prefix = TemporaryPrefix(file);
  std::error_code ec;
  fs::directory_iterator it(fs::path(DirectoryOf(file)), ec);
  for (; !ec && it != fs::directory_iterator(); it.increment(ec)) {
    const std::string name = it->path().filename().string();
    std::error_code ignored;
    if (name.rfind(prefix, 0) == 0 && !WriterRuns(name, prefix.size()) && it->is_regular_file(ignored)) {
      fs::remove(it->path(), ignored);
    }
  }
}

// Gives a nameless file a name beside the target, just before the rename; a
// named one has one already.
bool NameTemporary(int fd, const std::string& file, std::string& name) {
  if (!name.empty()) return true;
  const std::string proc = "/proc/self/fd/" + std::to_string(fd);
  for (int attempt = 0; attempt < 100; ++attempt) {
    name = TemporaryName(file, attempt);
    if (::linkat(AT_FDCWD, proc.c_str(), AT_FDCWD, name.c_str(), AT_SYMLINK_FOLLOW) == 0) return true;
    if (errno != EEXIST) break;
  }
  name.clear();
  return false;
}

// Names the temporary file beside `file` and renames it over `file`: the
// name is replaced whole, never written through.
bool RenameOver(int fd, std::string& name, const std::string& file) {
  return NameTemporary(fd, file, name) && ::rename(name.c_str(), file.c_str()) == 0;
}

// Puts the temporary file under `file`'s name only while that name is free.
bool LinkNew(int fd, const std::string& name, const std::string& file) {
  if (!name.empty()) return ::link(name.c_str(), file.c_str()) == 0;
  const std::string proc = "/proc/self/fd/" + std::to_string(fd);
  return ::linkat(AT_FDCWD, proc.c_str(), AT_FDCWD, file.c_str(), AT_SYMLINK_FOLLOW) == 0;
}

// A rename or a new name is only on the disk once its folder is.
void SyncFolder(const std::string& file) {
  const int fd = ::open(DirectoryOf(file).c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (fd < 0) return;
  [[maybe_unused]] const int synced = ::fsync(fd);
  ::close(fd);
}

constexpr int kLockFlags = O_RDWR | O_APPEND | O_CLOEXEC | O_NOCTTY | O_NONBLOCK | O_NOFOLLOW;

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

bool SameInode(const struct stat& a, const struct stat& b) {
  return a.st_dev == b.st_dev && a.st_ino == b.st_ino;
}

}  // namespace

bool WriteAll(int fd, std::string_view text) {
  size_t done = 0;
  while (done < text.size()) {
    const ssize_t n = ::write(fd, text.data() + done, text.size() - done);
    if (n < 0 && errno == EINTR) continue;
    if (n <= 0) return false;
    done += static_cast<size_t>(n);
  }
  return true;
}

std::string FileErrorText(int error) {
  switch (error) {
    case kFileInUse:
      return "the file is in use by another program";
    case kNotRegularFile:
      return "not a regular file";
    case kLineTooLong:
      return "a line is longer than 1 MiB";
    case kFileTooLong:
      return "the file is far longer than any such file";
    case kOtherOwner:
      return "the file belongs to another user";
    case kHardLinked:
      return "the file has other names (hard links)";
    case kForeignLink:
      return "a link another user made in a shared folder";
    default:
      return std::strerror(error);
  }
}

LineReader::LineReader(const std::string& path, long long maxBytes) : maxBytes_(maxBytes) {
  fd_ = OpenRegular(path, error_);
  struct stat st {};
  if (fd_ >= 0 && maxBytes_ >= 0 && ::fstat(fd_, &st) == 0 && st.st_size > maxBytes_) error_ = kFileTooLong;
}

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
  if (n > 0 && maxBytes_ >= 0 && start_ + n > maxBytes_) {
    n = -1;
    errno = 0;
    error_ = kFileTooLong;  // grew past the limit after it was opened
  }
  if (n <= 0) {
    if (n < 0 && error_ == 0) error_ = errno;
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

LockedFile::LockedFile(const std::string& path, bool create) {
  error_ = RealPath(path, real_);
  const auto deadline = std::chrono::steady_clock::now() + kLockWait;
  while (error_ == 0) {
    struct stat st {};
    if (!real_.empty() && ::stat(real_.c_str(), &st) == 0 && !S_ISREG(st.st_mode)) {
      error_ = kNotRegularFile;
      return;
    }
    // Read and write, or not at all: a file the user may not write is never
    // swapped for a new one behind its back.
    fd_ = ::open(real_.c_str(), kLockFlags);
    if (fd_ < 0) {
      absent_ = create && errno == ENOENT;
      if (!absent_) error_ = errno;
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
    const bool replaced = error_ == 0 && (::stat(real_.c_str(), &st) != 0 || !SameInode(st, locked));
    if (error_ == 0 && !replaced) return;
    ::close(fd_);
    fd_ = -1;
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

bool LockedFile::Create(const TextPieces& produce) {
  std::string name;
  const int tmp = OpenTemporary(real_, name, 0666);
  if (tmp < 0) return Fail(errno);
  // Locked before it has its name, so no other writer gets in first.
  [[maybe_unused]] const int held = ::flock(tmp, LOCK_EX | LOCK_NB);
  bool good = WritePieces(tmp, produce) && ::fsync(tmp) == 0 && LinkNew(tmp, name, real_);
  const int saved = errno;
  if (!name.empty()) ::unlink(name.c_str());
  if (!good) {
    ::close(tmp);
    return Fail(saved);  // EEXIST: another program made the file meanwhile
  }
  SyncFolder(real_);
  ::fcntl(tmp, F_SETFL, ::fcntl(tmp, F_GETFL) | O_APPEND);
  fd_ = tmp;
  absent_ = false;
  created_ = true;
  return true;
}

bool LockedFile::Replaceable() {
  struct stat st {};
  if (absent_) return true;
  if (!ok()) return false;
  if (::fstat(fd_, &st) != 0) return Fail(errno);
  // Only the superuser can give the new file the old one's owner.
  if (st.st_uid != ::geteuid() && ::geteuid() != 0) return Fail(kOtherOwner);
  if (st.st_nlink > 1) return Fail(kHardLinked);
  return true;
}

bool LockedFile::Replace(std::string_view contents) {
  return Replace([contents](const PieceWriter& write) { return write(contents); });
}

bool LockedFile::Replace(const TextPieces& produce) {
  struct stat st {};
  if (!ok()) return false;
  if (absent_) {
    if (!Create(produce)) return false;
    if (!StampOf(fd_, replaced_)) replaced_ = FileStamp{};
    return true;
  }
  if (!Replaceable()) return false;
  if (::fstat(fd_, &st) != 0) return Fail(errno);
  RemoveLeftovers(real_);
  std::string name;
  const int tmp = OpenTemporary(real_, name, 0600);
  if (tmp < 0) return Fail(errno);
  // Owner first: a change of owner clears set-id bits that the mode then restores.
  [[maybe_unused]] const int owned = ::fchown(tmp, st.st_uid, st.st_gid);
  bool good = WritePieces(tmp, produce) && ::fchmod(tmp, st.st_mode & 07777) == 0 && ::fsync(tmp) == 0;
  if (good) good = RenameOver(tmp, name, real_);
  const int saved = errno;
  if (good && !StampOf(tmp, replaced_)) replaced_ = FileStamp{};
  if (!good && !name.empty()) ::unlink(name.c_str());
  ::close(tmp);
  if (!good) return Fail(saved);
  SyncFolder(real_);
  created_ = false;
  return true;
}

bool LockedFile::Append(std::string_view contents) {
  struct stat st {};
  if (!ok()) return false;
  if (absent_) return Create([contents](const PieceWriter& write) { return write(contents); });
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
  if (absent_) return 0;
  return ok() && ::fstat(fd_, &st) == 0 ? static_cast<long long>(st.st_size) : -1;
}

bool LockedFile::CutBack(long long length) {
  if (absent_) return length == 0;
  return ok() && length >= 0 && ::ftruncate(fd_, static_cast<off_t>(length)) == 0;
}

namespace {

// A new file that another program made first is written again as the file it now is.
template <typename Write>
bool UnderLock(const std::string& path, int* error, Write write) {
  int failure = 0;
  for (int attempt = 0; attempt < 3; ++attempt) {
    LockedFile file(path, true);
    if (write(file)) {
      failure = 0;
      break;
    }
    failure = file.error();
    if (failure != EEXIST) break;
  }
  if (error) *error = failure;
  return failure == 0;
}

}  // namespace

bool WriteFileAtomically(const std::string& path, std::string_view contents, int* error) {
  return UnderLock(path, error, [&contents](LockedFile& file) { return file.Replace(contents); });
}

bool WriteFileAtomically(const std::string& path, const TextPieces& produce, int* error) {
  return UnderLock(path, error, [&produce](LockedFile& file) { return file.Replace(produce); });
}

bool AppendToFile(const std::string& path, std::string_view contents, int* error) {
  return UnderLock(path, error, [&contents](LockedFile& file) { return file.Append(contents); });
}

bool WriteWorkFile(const std::string& path, std::string_view contents, int* error) {
  int failure = 0;
  struct stat st {};
  if (::lstat(path.c_str(), &st) != 0) {
    if (errno != ENOENT) failure = errno;
  } else if (!S_ISREG(st.st_mode)) {
    failure = kNotRegularFile;  // a link too: it is never written through
  } else if (st.st_uid != ::geteuid()) {
    failure = kOtherOwner;
  } else if (st.st_nlink > 1) {
    failure = kHardLinked;
  }
  std::string name;
  const int tmp = failure == 0 ? OpenTemporary(path, name, 0666) : -1;
  if (failure == 0 && tmp < 0) failure = errno;
  if (tmp >= 0) {
    // The rename replaces the name itself, whatever was put there meanwhile.
    const bool good = WriteAll(tmp, contents) && ::fsync(tmp) == 0 && RenameOver(tmp, name, path);
    if (!good) failure = errno == 0 ? EIO : errno;
    if (!good && !name.empty()) ::unlink(name.c_str());
    ::close(tmp);
  }
  if (error) *error = failure;
  return failure == 0;
}

bool ReadWholeFile(const std::string& path, std::string& contents, int* error, long long maxBytes) {
  int failure = 0;
  const int fd = OpenRegular(path, failure);
  contents.clear();
  char buffer[kReadChunk];
  for (ssize_t n = 0; fd >= 0 && failure == 0;) {
    n = ::read(fd, buffer, sizeof buffer);
    if (n < 0 && errno != EINTR) failure = errno;
    if (n == 0) break;
    if (n > 0) contents.append(buffer, static_cast<size_t>(n));
    if (maxBytes >= 0 && static_cast<long long>(contents.size()) > maxBytes) failure = kFileTooLong;
  }
  if (fd >= 0) ::close(fd);
  if (failure != 0) contents.clear();
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

bool SameFile(const std::string& a, const std::string& b) {
  auto lower = [](std::string text) {
    for (char& c : text) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    return text;
  };
  struct stat sa {
  }, sb{};
  if (lower(a) == lower(b)) return true;
  return ::stat(a.c_str(), &sa) == 0 && ::stat(b.c_str(), &sb) == 0 && SameInode(sa, sb);
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
