// Loading and counting through the kept record index give what reading the
// file from the top gives, also when the file changes between two steps.
#include "files/record_index.h"

#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "board/play.h"
#include "files/file_commands.h"
#include "files/showing.h"
#include "model/text.h"
#include "recording_ui.h"
#include "test_support.h"

namespace velmora {
namespace {

namespace fs = std::filesystem;
using test::Record;
using test::Records;

// The records' titles as a load meets them reading from the top (a header,
// then the title line whatever it holds), and the lines beginning with "#".
struct FromTop {
  std::vector<std::string> titles;
  int headers = 0;
};

FromTop ReadFromTop(const std::string& text) {
  FromTop top;
  std::istringstream in(text);
  bool title = false;
  for (std::string line; std::getline(in, line);) {
    if (!line.empty() && line.back() == '\r') line.pop_back();
    const bool header = !line.empty() && line[0] == '#';
    if (title) top.titles.push_back(line);
    title = !title && header;
    top.headers += header;
  }
  return top;
}

// Every record of `file`, and the one past the last, load with the title that
// reading from the top finds; the count is that of the "#" lines.
void ExpectAsFromTop(const std::string& file, const std::string& what) {
  std::string text;
  ASSERT_TRUE(ReadWholeFile(file, text));
  const FromTop top = ReadFromTop(text);
  EXPECT_EQ(CountPuzzles(file), top.headers) << what;
  SilentUserInterface ui;
  for (size_t n = 1; n <= top.titles.size() + 1; ++n) {
    GameState s;
    std::string title;
    const int notFound = LoadPuzzle(s, ui, file, static_cast<int>(n), title, 0);
    if (n > top.titles.size()) {
      EXPECT_EQ(notFound, 1) << what;
    } else {
      EXPECT_EQ(title, top.titles[n - 1]) << what << " record " << n;
    }
  }
}

// Written an hour ago, so that the index made of it is kept.
void AtRest(const std::string& file) {
  fs::last_write_time(file, fs::file_time_type::clock::now() - std::chrono::hours(1));
}

// Records in both line ends, free text, a title beginning with "#", headers
// out of order, an empty title, and no line end after the last line.
std::string Mixed() {
  std::string lf = Record(3, "three", 4);
  for (size_t at; (at = lf.find("\r\n")) != std::string::npos;) lf.erase(at, 1);
  std::string last = Record(1, "tail", 13);
  last.replace(2, 2, "\n");
  last.resize(last.size() - 2);
  return "free text\r\n" + Record(7, "#seven") + "stray\n" + lf + Record(5, "", 9) + last;
}

TEST(RecordIndex, LoadsAndCountsAsReadingFromTheTopFreshAndKept) {
  test::TempDir dir;
  const std::string file = dir.Write("m.vlm", Mixed());
  ExpectAsFromTop(file, "fresh");
  AtRest(file);
  ExpectAsFromTop(file, "read");
  ExpectAsFromTop(file, "kept");
  GameState s = test::Loaded(file, 4);
  EXPECT_EQ(s.SolutionGrid[7][7], 20);
  std::string title;
  SilentUserInterface ui;

  // An over-long line ends the reading: what follows is neither counted nor loaded.
  const std::string longLine =
      dir.Write("l.vlm", Records(2) + std::string(kMaxLineLength + 1, 'x') + "\r\n" + Record(3, "beyond"));
  AtRest(longLine);
  for (int pass = 0; pass < 2; ++pass) {
    EXPECT_EQ(LoadPuzzle(s, ui, longLine, 2, title, 0) + LoadPuzzle(s, ui, longLine, 3, title, 0), 1);
    EXPECT_EQ(CountPuzzles(longLine), 2);
  }
}

TEST(RecordIndex, TheFileChangedUnderneathBetweenTwoStepsGivesTheNewTruth) {
  test::TempDir dir;
  const std::string file = dir.Write("p.vlm", Records(5));
  AtRest(file);
  GameState s = test::Showing(file, 5);
  test::RecordingUi ui;

  std::ofstream(file, std::ios::app | std::ios::binary) << Record(6, "T6", 5);  // appended
  arrowsMouseUp(s, ui, kArrowNext, kLeftButton);
  EXPECT_EQ(test::Shown(s), "6 of 6 T6");

  dir.Write("p.vlm", Records(3));  // shrunk: Next from 6 wraps to 1
  AtRest(file);
  arrowsMouseUp(s, ui, kArrowNext, kLeftButton);
  EXPECT_EQ(test::Shown(s), "1 of 3 T1");

  // Replaced by a rename with a file of the same size and time; then
  // rewritten in place, the same size and the time set back again.
  const auto time = fs::last_write_time(file);
  const std::string other = dir.Write("q.vlm", Record(9, "U1") + Record(8, "U2") + Record(7, "U3"));
  fs::last_write_time(other, time);
  fs::rename(other, file);
  s.view.PuzNumNow = "3";
  PuzNumNowEnter(s, ui);
  EXPECT_EQ(test::Shown(s), "3 of 3 U3");
  std::string text = Records(3);
  dir.Write("p.vlm", text.replace(text.find("T2"), 2, "#X"));
  fs::last_write_time(file, time);
  s.view.PuzNumNow = "2";
  PuzNumNowEnter(s, ui);
  EXPECT_EQ(test::Shown(s), "2 of 4 #X");
  ExpectAsFromTop(file, "rewritten");
}

TEST(RecordIndex, OwnAppendsLoadAsReadingFromTheTop) {
  test::TempDir dir;
  GameState s = test::Loaded(test::SampleFile(), 1);
  const std::pair<const char*, std::string> files[] = {
      {"whole records", Records(3)},
      {"a header without its title", Records(2) + "#9\r\n"},
      {"no line end at the end", Records(2) + "tail"},
  };
  for (const auto& [what, text] : files) {
    const std::string file = dir.Write("a.vlm", text);
    AtRest(file);
    ExpectAsFromTop(file, what);
    for (const char* title : {"new 1", "#new 2"}) EXPECT_GT(AppendPuzzleRecord(s, file, title), 0) << what;
    ExpectAsFromTop(file, what);
  }
}

}  // namespace
}  // namespace velmora
