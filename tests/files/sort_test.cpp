// The sort tool on real files: keys, orders, renumbering, records read as
// text, the refusals and a failed run.
#include "files/sort.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <tuple>

#include "recording_ui.h"
#include "test_support.h"

namespace velmora {
namespace {

using test::Headers;
using test::TempDir;
using Strings = std::vector<std::string>;

std::string Rec(const std::string& header, const std::string& title, const std::string& size, int rows = 1,
                const std::string& row = "@@@@@@@@@|A") {
  std::string text = header + "\r\n" + title + "\r\n" + size + "\r\n";
  for (int r = 0; r < rows; ++r) text += row + "\r\n";
  return text;
}

struct Sorting {
  explicit Sorting(const std::string& source) {
    settings.source = dir.Write("in.vlm", source);
    settings.output = dir.File("out.vlm");
  }
  SortStatus Run(SortKey key, SortOrder order = SortOrder::kAscending) {
    settings.key = key;
    settings.order = order;
    return SortPuzzleFile(settings, rng, ui, [this](long long n) { counts += " " + std::to_string(n); });
  }
  std::string Output() const { return dir.Read("out.vlm"); }
  TempDir dir;
  SortSettings settings;
  Random rng = Random::Seeded(7);
  test::RecordingUi ui;
  std::string counts;
};

// Blanks 4, 30, 9, 12; sizes 6, 9, 1, 3; "#x" has no number.
const std::string kA = Rec("#10", "beta", " 2, 3, 4", 2), kB = Rec("#2", "Zeta", " 1, 9, 30"),
                  kC = Rec("#x", "alpha", " 1, 1, 9"), kD = Rec("#1", "beta", " 3, 1, 12", 3);

TEST(Sort, EachKeyAndOrderAndTheSourceStaysAsItWas) {
  const std::string source = kA + "\r\n   \r\n" + kB + kC + kD;
  Sorting s(source);
  ASSERT_EQ(s.Run(SortKey::kNumber), kSorted);  // 2 before 10
  EXPECT_EQ(s.Output(), kC + kD + kB + kA);
  EXPECT_EQ(s.ui.messages, Strings{"4 puzzles sorted to file:\r\n" + s.settings.output});
  EXPECT_EQ(s.counts + (s.ui.busy ? " busy" : ""), " 1 2 3 4 3 2 1 0");
  const std::tuple<SortKey, SortOrder, Strings> cases[] = {
      {SortKey::kHeader, SortOrder::kAscending, {"#2", "#x", "#1", "#10"}},  // the header breaks the tie
      {SortKey::kHeader, SortOrder::kDescending, {"#10", "#1", "#x", "#2"}},
      {SortKey::kSize, SortOrder::kAscending, {"#x", "#1", "#10", "#2"}},
      {SortKey::kBlanks, SortOrder::kDescending, {"#2", "#1", "#x", "#10"}},
  };
  for (const auto& [key, order, headers] : cases) {
    EXPECT_EQ(s.Run(key, order), kSorted);
    EXPECT_EQ(Headers(s.Output()), headers);
  }
  EXPECT_EQ(s.dir.Read("in.vlm"), source);
}

TEST(Sort, RandomOrderShufflesAndRenumbersFromStartUnlessBlanksDecide) {
  std::string source;
  for (int i = 1; i <= 6; ++i)
    source += Rec("#" + std::to_string(9 - i), "T" + std::to_string(i), " 1, 1, 1");
  Sorting s(source);
  s.settings.start = "0.5";
  ASSERT_EQ(s.Run(SortKey::kNumber, SortOrder::kRandom), kSorted);
  EXPECT_EQ(s.settings.start + (s.settings.resequence ? " ticked" : ""), "1 ticked");
  std::string titles;  // the title lines are the only ones that begin with "T"
  for (const std::string& line : test::Lines(s.Output())) titles += line[0] == 'T' ? line : "";
  EXPECT_NE(titles, "T6T5T4T3T2T1");  // not by number
  std::sort(titles.begin(), titles.end());
  EXPECT_EQ(titles, "123456TTTTTT");  // each record once
  EXPECT_EQ(Headers(s.Output()), (Strings{"#1", "#2", "#3", "#4", "#5", "#6"}));

  s.settings.start = "41";
  s.settings.resequence = false;
  ASSERT_EQ(s.Run(SortKey::kBlanks, SortOrder::kRandom), kSorted);  // equal blanks: the header decides
  EXPECT_EQ(Headers(s.Output()), (Strings{"#41", "#42", "#43", "#44", "#45", "#46"}));
  EXPECT_EQ(test::Lines(s.Output())[1], "T6");
}

TEST(Sort, RowsArePaddedWithDotsAndAMissingBlanksCountIsTheNumberOfBAndW) {
  Sorting s(Rec("#1", "t", " 1, 7", 1, "B w") + Rec("#2", "u", " 2, 3, 0", 2, "WWb b") +
            Rec("#3", "v", " 1, 2, 5", 1, " "));
  ASSERT_EQ(s.Run(SortKey::kHeader), kSorted);
  EXPECT_EQ(s.Output(), Rec("#1", "t", " 1, 7, 2", 1, "B.w....") + Rec("#2", "u", " 2, 3, 0, 6", 2, "WWb.b") +
                            Rec("#3", "v", " 1, 2, 5", 1, ".."));
}

TEST(Sort, ManyRecordsUnderOneKeyFollowTheirWholeSortTexts) {
  // Titles alike for 19 bytes, one number throughout, every record twice or more.
  std::string source;
  std::vector<std::pair<std::string, std::string>> byTitle, byNumber;  // sort text, lines
  for (int i = 0; i < 6000; ++i) {
    const std::string header = i % 2 ? "#7" : "#07",
                      title = "Easy 23/11/2026 07:" + std::to_string(i * 7919 % 997);
    const std::string row = {static_cast<char>('A' + i % 26), static_cast<char>('a' + i % 7), 'x'};
    const std::string lines = Rec(header, title, " 1, 3, 2", 1, row),
                      rest = "\r" + header + "\r" + title + "\r 1, 3, 2\r" + row;
    source += lines;
    byTitle.push_back({title + rest, lines});
    byNumber.push_back({"00007" + rest, lines});
  }
  Sorting s(source);
  for (auto* expected : {&byTitle, &byNumber}) {
    std::sort(expected->begin(), expected->end());
    std::string text;
    for (const auto& record : *expected) text += record.second;
    ASSERT_EQ(s.Run(expected == &byTitle ? SortKey::kHeader : SortKey::kNumber), kSorted);
    EXPECT_TRUE(s.Output() == text);
  }
}

TEST(Sort, RefusalsAndAFailedRunLeaveTheOldOutputAlone) {
  const std::tuple<std::string, std::string, std::string> cases[] = {
      {kA, "  ", "Specify output file name"},
      {"", "out.vlm", "Input file does not exist"},
      {kA, "IN.VLM", "Input and output files cannot be same"},
      {"text only\r\n", "out.vlm", "There are no puzzles in this file"},
      {Rec("#1", "t", " 1, 1, 1") + Rec("#2", "u", " 3, 7, 5", 2), "out.vlm", "Unable to sort file:"},
      {Rec("#1", "t", " 7"), "out.vlm", "Unable to sort file:"},  // no row width
      {Rec("#1", "t", " 8, 7000000", 8, ""), "out.vlm",
       "Unable to sort file:"},  // 56 MB of dots from 36 bytes
      // A line over 1 MiB stops the reading: the records after it are not dropped unsaid.
      {kA + std::string(2000000, '\0') + "\r\n" + kB, "out.vlm", "Unable to sort file:"},
  };
  for (const auto& [source, output, message] : cases) {
    Sorting s(source);
    if (source.empty()) s.settings.source = s.dir.File("missing.vlm");
    s.settings.output = output == "  " ? output : s.dir.File(output);
    s.dir.Write("out.vlm", "old");
    EXPECT_NE(s.Run(SortKey::kNumber), kSorted);
    const std::string named = message == "Unable to sort file:" ? message + s.settings.output : message;
    EXPECT_EQ(s.ui.messages, Strings{named});
    EXPECT_EQ(s.Output() + (s.ui.busy ? " busy" : ""), "old");
  }
}

TEST(Sort, ProposedOutputName) {
  EXPECT_EQ(SortedOutputName("/d/puzzles.vlm") + "|" + SortedOutputName("a.b.txt") + "|" +
                SortedOutputName("/a.b/p"),
            "/d/puzzles_sorted.vlm|a.b_sorted.txt|");
}

}  // namespace
}  // namespace velmora
