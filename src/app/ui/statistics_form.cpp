// Assist > "Statistics...": a plain table of the store's figures.
#include "app/ui/statistics_form.h"

#include <QDialogButtonBox>
#include <QHeaderView>
#include <QLabel>
#include <QTableWidget>
#include <QVBoxLayout>

#include "creation/levels.h"

namespace velmora {
namespace {

QString Q(const std::string& text) { return QString::fromLocal8Bit(text.c_str()); }

// One row per level, finished or not: count, best and median time.
QTableWidget* LevelTable(const StoreFigures& all, QWidget* parent) {
  static const char* const kLevelNames[] = {"Easy", "Hard", "VHard"};
  auto* table = new QTableWidget(3, 4, parent);
  table->setObjectName(QStringLiteral("Levels"));
  table->setHorizontalHeaderLabels(
      {QObject::tr("Level"), QObject::tr("Finished"), QObject::tr("Best"), QObject::tr("Median")});
  table->verticalHeader()->hide();
  table->setEditTriggers(QAbstractItemView::NoEditTriggers);
  for (int row = 0; row < 3; ++row) {
    QStringList cells{QString::fromLatin1(kLevelNames[row]), QStringLiteral("0"), QStringLiteral("-"),
                      QStringLiteral("-")};
    for (const LevelFigures& level : all.levels) {
      if (level.level != kLevelNames[row]) continue;
      cells = {Q(level.level), QString::number(level.finished), Q(ClockText(level.bestMs)),
               Q(ClockText(level.medianMs))};
    }
    for (int col = 0; col < 4; ++col) table->setItem(row, col, new QTableWidgetItem(cells[col]));
  }
  table->resizeColumnsToContents();
  return table;
}

}  // namespace

StatisticsForm::StatisticsForm(const StoreFigures& all, const StoreFigures& inFile, const std::string& file,
                               int count, QWidget* parent)
    : QDialog(parent) {
  setObjectName(QStringLiteral("Statistics"));
  setWindowTitle(tr("Statistics"));
  auto* layout = new QVBoxLayout(this);
  auto* fileLine = new QLabel(tr("This file: finished %1 of %2, in progress %3\n%4")
                                  .arg(inFile.finished)
                                  .arg(count)
                                  .arg(inFile.inProgress)
                                  .arg(Q(file)),
                              this);
  fileLine->setObjectName(QStringLiteral("FileFigures"));
  auto* allLine = new QLabel(tr("Every puzzle played: finished %1, in progress %2, shown %3")
                                 .arg(all.finished)
                                 .arg(all.inProgress)
                                 .arg(all.shown),
                             this);
  allLine->setObjectName(QStringLiteral("AllFigures"));
  layout->addWidget(fileLine);
  layout->addWidget(allLine);
  layout->addWidget(LevelTable(all, this));
  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close, this);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  layout->addWidget(buttons);
}

}  // namespace velmora
