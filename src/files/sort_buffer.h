// The sort tool's buffer: every record of a source kept once, ordered by its
// sort text (key, CR, then the record's lines joined by CR) with little memory
// beside the records themselves.
#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "files/sort.h"

namespace velmora::sorting {

// A record's lines as read, the rows already padded and dotted, and the
// numbers its size line gives.
struct RecordLines {
  std::string header, title, size, rows, line;  // rows: each after an LF
  int rowCount = 0, colCount = 0;
  double blanks = 0;
  long long appended = -1;  // the count of "B" and "W" the size line gets, or -1
};

// What decides a record's place among the records its code ties with: its
// sort text as stored, from some byte on, in four pieces read one after the
// other: the key's line, the record's lines to the end of its size line, the
// blanks count appended to that line and the rest of the record. Every LF in
// it reads as CR. A number key that its code gives exactly is left out: the
// records it is compared with have the same key.
struct StoredText {
  std::string_view key, lines, rest;
  char appended[24] = {};  // ", " and the count
  uint8_t appendedFrom = 0, appendedTo = 0;

  std::array<std::string_view, 4> Pieces() const {
    return {key, lines, std::string_view(appended + appendedFrom, appendedTo - appendedFrom), rest};
  }
};

// n rounded half away from zero, its digits padded with zeros to `width`,
// a minus sign before them when negative: -1 in five places is "-00001".
std::string ZeroPadded(double n, size_t width);

// Where the line of `text` that begins at `from` ends: its LF, or npos.
size_t LineEnd(std::string_view text, size_t from);

class SortBuffer {
 public:
  SortBuffer(const SortSettings& settings, long long sourceBytes);
  ~SortBuffer();
  SortBuffer(const SortBuffer&) = delete;
  SortBuffer& operator=(const SortBuffer&) = delete;

  void Add(std::string_view key, const RecordLines& r);
  // Ascending order of the sort texts.
  void Sort();
  size_t size() const;
  // Record i's lines, from the header line on, as stored (no key).
  StoredText Lines(size_t i) const;

 private:
  class Impl;
  std::unique_ptr<Impl> impl_;
};

}  // namespace velmora::sorting
