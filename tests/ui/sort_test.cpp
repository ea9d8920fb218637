// File > Sort: the dialog proposes the "_sorted" name and sorts.
#include <gtest/gtest.h>

#include <QPushButton>
#include <QRadioButton>

#include "controls/ui/fndialog.h"
#include "files/ui/sort_form.h"
#include "ui_support.h"

namespace velmora {
namespace {

using test::Child;

TEST(SortDialog, ProposesTheSortedNameAndSorts) {
  test::Window win(1);
  const QString out = QString::fromStdString(win.dir.File("puzzles_sorted.vlm"));
  QString proposed;
  int step = 0;
  bool pressing = false;  // a press runs the sort and its message box inside this poll
  test::Poller hand([&] {
    SortForm* f = test::ModalDialog<SortForm>();
    if (!f || pressing) return;
    if (step++ == 0) {
      auto* output = Child<FNDialog>(f, "gf1");
      proposed = output->Text() + "|" + output->toolTip();
      Child<QRadioButton>(f, "Option5")->click();
      Child<QRadioButton>(f, "Option2")->click();
    }
    pressing = true;  // sort, then Exit
    Child<QPushButton>(f, step == 1 ? "Command1" : "Command2", Qt::FindDirectChildrenOnly)->click();
    pressing = false;
  });
  win.Trigger("mnusortpuz");
  EXPECT_EQ(proposed, out + "|" + out);
  EXPECT_EQ(win.hand.texts, std::vector<std::string>{"3 puzzles sorted to file:\n" + out.toStdString()});
  EXPECT_EQ(test::Headers(win.dir.Read("puzzles_sorted.vlm")), (std::vector<std::string>{"#3", "#2", "#1"}));
}

}  // namespace
}  // namespace velmora
