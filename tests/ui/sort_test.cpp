// File > Sort: the dialog proposes the "_sorted" name, refuses a blank output
// name and sorts.
#include <gtest/gtest.h>

#include <QPushButton>
#include <QRadioButton>

#include "controls/ui/fndialog.h"
#include "files/ui/sort_form.h"
#include "ui_support.h"

namespace velmora {
namespace {

using test::Child;

TEST(SortDialog, ProposesTheSortedNameRefusesABlankOneAndSorts) {
  test::Window win(1);
  const QString out = QString::fromStdString(win.dir.File("puzzles_sorted.vlm"));
  QString proposed;
  int step = 0;
  bool pressing = false;  // a press runs the sort and its message box inside this poll
  test::Poller hand([&] {
    SortForm* f = test::ModalDialog<SortForm>();
    if (!f || pressing) return;
    auto* output = Child<FNDialog>(f, "gf1");
    const char* button = "Command2";
    if (step == 0) {
      proposed = output->Text() + "|" + output->toolTip();
      output->SetText("   ");
      button = "Command1";
    } else if (step == 1) {
      output->SetText(out);
      Child<QRadioButton>(f, "Option5")->click();
      Child<QRadioButton>(f, "Option2")->click();
      button = "Command1";
    }
    ++step;
    pressing = true;
    Child<QPushButton>(f, button, Qt::FindDirectChildrenOnly)->click();
    pressing = false;
  });
  win.Trigger("mnusortpuz");
  EXPECT_EQ(proposed, out + "|" + out);
  EXPECT_EQ(win.hand.texts, (std::vector<std::string>{"Specify output file name",
                                                      "3 puzzles sorted to file:\n" + out.toStdString()}));
  EXPECT_EQ(test::Headers(win.dir.Read("puzzles_sorted.vlm")), (std::vector<std::string>{"#3", "#2", "#1"}));
}

}  // namespace
}  // namespace velmora
