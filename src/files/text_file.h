// Line-by-line text files: CR LF or LF read, CR LF written; locked, whole-or-
// nothing appends and replacement by rename.
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace velmora {

// Reasons a file operation fails besides the system's error numbers.
inline constexpr int kFileInUse = -1;       // another program holds the file's lock
inline constexpr int kNotRegularFile = -2;  // a device, a pipe or a folder
inline constexpr int kLineTooLong = -3;     // a line longer than kMaxLineLength
inline constexpr int kFileTooLong = -4;     // longer than its reader allows
inline constexpr int kOtherOwner = -5;      // a replacement could not keep the file's owner
inline constexpr int kHardLinked = -6;      // a replacement would split the file's other names from it
inline constexpr int kForeignLink = -7;     // a link another user put in a shared folder
// No line the program writes comes near this; a longer one is damage (or a
// file that never ends) and stops the reading.
inline constexpr size_t kMaxLineLength = size_t{1} << 20;

// "No such file or directory", "the file is in use by another program", ...
std::string FileErrorText(int error);

// A text handed over in pieces, for one too large to hold whole: `produce`
// calls `write` with each piece in turn and returns false to give up (as
// `write` does when a piece could not be written).
using PieceWriter = std::function<bool(std::string_view piece)>;
using TextPieces = std::function<bool(const PieceWriter& write)>;

// One version of a file: a file replaced by a rename has another inode, and
// any write changes the change time (times in nanoseconds since 1970).
struct FileStamp {
  unsigned long long device = 0, inode = 0;
  long long size = -1, modified = 0, changed = 0;
  bool operator==(const FileStamp&) const = default;
};

// Reads regular files only; a device, a pipe or a folder does not open.
class LineReader {
 public:
  // A file longer than `maxBytes` (when given) stops the reading with kFileTooLong.
  explicit LineReader(const std::string& path, long long maxBytes = -1);
  ~LineReader();
  LineReader(const LineReader&) = delete;
  LineReader& operator=(const LineReader&) = delete;

  bool IsOpen() const { return fd_ >= 0; }
  // Next line without its line end; false at end of file, on a read error and
  // at a line longer than kMaxLineLength (then error() is kLineTooLong).
  bool ReadLine(std::string& line);
  bool AtEnd();
  // Where the next line begins, and going back or on to such a place.
  long long Tell() const { return start_ + static_cast<long long>(pos_); }
  bool Seek(long long offset);
  bool Stamp(FileStamp& stamp) const;
  // Why the file did not open or the reading stopped early; 0 when it did not.
  int error() const { return error_; }

 private:
  bool Fill();

  int fd_ = -1;
  int error_ = 0;
  long long maxBytes_ = -1;
  std::string buffer_;
  size_t pos_ = 0;
  long long start_ = 0;  // the file offset of buffer_[0]
  bool ended_ = false;
};

// An advisory lock (flock) on the real file behind a path, for a whole
// read-modify-write. The system drops it when the process ends, however it
// ends, so it is never left stuck. A second writer waits a short time, then
// gets kFileInUse. Only a file the user may write is opened (kept read-only
// files stay as they are), and a link another user put into a shared folder
// (sticky and world-writable, like /tmp) is not followed.
class LockedFile {
 public:
  // With `create`, a missing file is no error: the first Replace or Append
  // makes it whole, so a crash before that leaves no file at all.
  LockedFile(const std::string& path, bool create);
  ~LockedFile();
  LockedFile(const LockedFile&) = delete;
  LockedFile& operator=(const LockedFile&) = delete;

  bool ok() const { return fd_ >= 0 || absent_; }
  // False while a missing file has not been made yet.
  bool Exists() const { return fd_ >= 0; }
  int error() const { return error_; }
  // The locked file's version; size -1 when it has none.
  FileStamp Stamp() const;
  // The real file: symbolic links followed.
  const std::string& path() const { return real_; }
  // Whether Replace may swap the file: it keeps its owner and its other
  // names (hard links), else kOtherOwner or kHardLinked.
  bool Replaceable();
  // Replaces the contents through a nameless temporary file beside the real
  // file that is renamed over it at the end; keeps the file's permissions.
  // The file changes only when every piece was written.
  bool Replace(std::string_view contents);
  bool Replace(const TextPieces& produce);
  // The version of the file the last Replace made.
  const FileStamp& Replaced() const { return replaced_; }
  // Appends whole or not at all: on any error the file is cut back to its
  // length before. A last line without its line end gets one first.
  bool Append(std::string_view contents);
  // The file was made by this lock and is empty again: remove it.
  void RemoveIfCreated();
  // Length in bytes (-1 when it cannot be measured), and cutting the file back
  // to a length it had, for a run of appends that must land whole or not at all.
  long long Length() const;
  bool CutBack(long long length);

 private:
  bool Fail(int error);
  bool Create(const TextPieces& produce);

  std::string real_;
  FileStamp replaced_;
  int fd_ = -1;
  int error_ = 0;
  bool absent_ = false;   // missing, to be made by the first write
  bool created_ = false;  // made by this lock
};

// Writes all of `text` to the open file `fd`, going on after interrupted or
// short writes; false at the first failed write.
bool WriteAll(int fd, std::string_view text);

// Replaces a file's contents under its lock (see LockedFile::Replace); a
// crash leaves either the old or the new contents (or, for a new file, none),
// never a temporary file.
bool WriteFileAtomically(const std::string& path, std::string_view contents, int* error = nullptr);
bool WriteFileAtomically(const std::string& path, const TextPieces& produce, int* error = nullptr);
// Appends under the file's lock, whole or not at all (see LockedFile::Append).
bool AppendToFile(const std::string& path, std::string_view contents, int* error = nullptr);
// A work file the program leaves behind (velmora.tmp, newall.cox): written
// whole under its own name, never through a link, nor over a file that is
// not the user's own plain file.
bool WriteWorkFile(const std::string& path, std::string_view contents, int* error = nullptr);
// Regular files only; one longer than `maxBytes` is refused with kFileTooLong.
bool ReadWholeFile(const std::string& path, std::string& contents, int* error = nullptr,
                   long long maxBytes = -1);
bool FileExists(const std::string& path);
// Size in bytes, or -1 when the file cannot be measured.
long long FileLength(const std::string& path);
// Two names of one file: equal ignoring case, or one file behind links, hard
// links and spellings such as "./".
bool SameFile(const std::string& a, const std::string& b);

// Lines of a text in CR LF form ("a\r\nb\r\n").
std::string JoinLines(const std::vector<std::string>& lines);

}  // namespace velmora
