// Assist > "Statistics...": what the player finished, per level, over every
// puzzle kept in the store and for the current puzzle file.
#pragma once

#include <QDialog>
#include <string>

#include "files/player_store.h"

namespace velmora {

class StatisticsForm : public QDialog {
  Q_OBJECT

 public:
  // `all`: every puzzle in the store; `inFile`: those of `file`, which holds `count` puzzles.
  StatisticsForm(const StoreFigures& all, const StoreFigures& inFile, const std::string& file, int count,
                 QWidget* parent);
};

}  // namespace velmora
