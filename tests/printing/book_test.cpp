// Puzzle books as marks: page order and counts, the Not used lines, records
// left out, and every mark inside the printable area of A4 and Letter.
#include "printing/book.h"

#include <gtest/gtest.h>

#include "test_support.h"

namespace velmora {
namespace {

using Strings = std::vector<std::string>;

// The texts of each page; marks outside the printable area are counted.
struct BookPage : PrintSurface {
  BookPage(int width, int height) : right(width - 360), bottom(height - 360) {}
  void Text(int x, int y, int points, bool, const std::string& text) override {
    // Half an em a letter on average, a line as high as its size and a half.
    Inside(x, y, x + static_cast<int>(text.size()) * points * 10, y + points * 30);
    pages.back().push_back(text);
  }
  void Box(int x1, int y1, int x2, int y2) override { Inside(x1, y1, x2, y2); }
  void Symbol(int, int x, int y, int size) override { Inside(x, y, x + size, y + size); }
  void NewPage() override { pages.emplace_back(); }
  int RightEdge() const override { return right; }
  int BottomEdge() const override { return bottom; }
  void Inside(int x1, int y1, int x2, int y2) {
    outside += x1 < 360 || y1 < 360 || x2 > right || y2 > bottom;
  }
  std::vector<Strings> pages{1};
  int right, bottom, outside = 0;
};

Strings Starting(const Strings& page, const std::string& start) {
  Strings out;
  for (const std::string& t : page)
    if (t.starts_with(start)) out.push_back(t);
  return out;
}

TEST(Book, PagesInOrderWithHeadingsNotUsedLinesAndNumbers) {
  test::TempDir dir;
  // Record 3 breaks off after its size line: left out and counted.
  const std::string file = dir.Write("b.vlm", test::Records(2) + "#3\r\nT3\r\n 7, 7, 49\r\n" +
                                                  test::Record(4, "T4", 3) + test::Record(5, "", 4));
  BookChoice c{file, 1, 5, 2, true, 3, "My Book"};
  const BookContents contents = ReadBookContents(c);
  EXPECT_EQ(contents.records, (std::vector<int>{1, 2, 4, 5}));
  EXPECT_EQ(contents.unreadable, 1);
  EXPECT_EQ(contents.levels, Strings{"VHard"});  // 49 blanks
  BookPage book(11906, 16838);
  ASSERT_TRUE(PrintBook(c, contents, book));
  ASSERT_EQ(static_cast<int>(book.pages.size()), BookPages(c, 4));
  EXPECT_EQ(book.pages[0], (Strings{"1", "My Book", "4 puzzles", "Level: VHard", "Answers at the back"}));
  EXPECT_EQ(Strings(book.pages[1].begin(), book.pages[1].begin() + 3),
            (Strings{"My Book", "2", "Puzzle 1: T1"}));
  // These records' solutions hold seven cards: the rest are not used.
  EXPECT_EQ(Starting(book.pages[1], "Not used: ").size(), 2u);
  EXPECT_TRUE(book.pages[1][3].starts_with("Not used: 2C 3S 3H"));
  EXPECT_EQ(Starting(book.pages[2], "Puzzle"), (Strings{"Puzzle 3: T4", "Puzzle 4: VHard"}));
  EXPECT_EQ(Starting(book.pages[3], "Puzzle"), (Strings{"Puzzle 1", "Puzzle 2", "Puzzle 3"}));
  EXPECT_EQ(Strings(book.pages[4].begin(), book.pages[4].begin() + 3), (Strings{"Answers", "5", "Puzzle 4"}));

  c.title.clear();
  c.answers = false;
  BookPage plain(11906, 16838);
  ASSERT_TRUE(PrintBook(c, contents, plain));
  EXPECT_EQ(plain.pages.size(), 2u);
  EXPECT_EQ(plain.pages[0].front(), "1");
}

TEST(Book, NotUsedLineAndLeftOutCount) {
  EXPECT_EQ(NotUsedLine(test::Loaded(test::SampleFile(), 1).puzzle), "Not used: 2D TH KH");
  EXPECT_EQ(LeftOutText(0), "");
  EXPECT_EQ(LeftOutText(1), "1 record could not be read and was left out");
  EXPECT_EQ(LeftOutText(3), "3 records could not be read and were left out");
}

TEST(Book, EveryLayoutStaysInsideA4AndLetter) {
  test::TempDir dir;
  const std::string file = dir.Write("b.vlm", test::Records(13));
  for (const auto& [width, height] : {std::pair{11906, 16838}, std::pair{12240, 15840}}) {
    for (const int per : kBookPerPage) {
      for (const int answers : {1, 5, kMaxAnswersPerPage}) {
        const BookChoice c{file, 1, 13, per, true, answers, std::string(200, 'W')};
        BookPage book(width, height);
        ASSERT_TRUE(PrintBook(c, ReadBookContents(c), book));
        EXPECT_EQ(book.outside, 0) << width << " " << per << " " << answers;
        EXPECT_EQ(static_cast<int>(book.pages.size()), BookPages(c, 13));
      }
    }
  }
}

}  // namespace
}  // namespace velmora
