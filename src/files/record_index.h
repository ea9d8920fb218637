// Where the records of a puzzle file begin, kept per version of the file, so
// that record n of a big file is read without reading the ones before it.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "files/text_file.h"

namespace velmora {

// What reading a file from the top finds, for one version of the file.
struct RecordIndex {
  FileStamp stamp;
  // Lines beginning with "#" (a title that begins with "#" as well).
  int headerLines = 0;
  // Records as a load counts them, a header and the title line after it
  // whatever that holds: where each title line begins.
  std::vector<long long> titles;
  // The last header has no title line: the file ends or stops being
  // readable right after it.
  bool titleMissing = false;
  // The reading got to the end of the file (no over-long line, no read error).
  bool complete = true;
};

// The index of the file `reader` has open. A kept index serves as long as the
// file's device, inode, size and times are the ones it was made for; else the
// file is read from the top with `reader`, which is left anywhere. Safe to call
// from several threads; a handful of files are kept.
std::shared_ptr<const RecordIndex> IndexRecords(LineReader& reader);

// This process appended `text` under the file's lock, taking the file from
// version `before` to `after`: a kept index of `before` grows by the text
// instead of the file being read again.
void IndexAppended(const FileStamp& before, const FileStamp& after, const std::string& text);
// This process wrote `text` as the whole of the file version `stamp`.
void IndexWritten(const FileStamp& stamp, const std::string& text);

}  // namespace velmora
