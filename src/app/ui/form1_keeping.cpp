// Main window: keeping unfinished boards around every command, the play
// clock, Next Unfinished and the statistics.
#include <QEvent>
#include <QLabel>
#include <QTimer>

#include "app/settings.h"
#include "app/ui/form1.h"
#include "app/ui/statistics_form.h"
#include "files/file_commands.h"
#include "model/commands.h"
#include "model/text.h"

namespace velmora {

void Form1::OpenKeeping(const std::string& appFolder) {
  if (!LoadSettings(appFolder).keepBoards) return;
  store_ = std::make_unique<PlayerStore>(appFolder);
  keeper_ = std::make_unique<BoardKeeper>(*store_);
}

void Form1::Kept(const std::function<void()>& act) {
  BoardKeeper* keeper = keeper_.get();
  if (!keeper || inKept_) {
    act();
    return;
  }
  inKept_ = true;
  nextEvent_ = KeeperEvent::kCommand;
  keeper->Before(s_);
  act();
  inKept_ = false;
  if (keeper_.get() != keeper) return;  // the command switched keeping off
  keeper->After(s_, *this, clock_.Ms(), nextEvent_);
  clock_.Set(keeper->PlayedMs());
  ClockFollows();
}

void Form1::KeepBoardsToggled() {
  const bool on = keepBoards_->isChecked();
  ChangeSettings(s_.session.AppFolder, [on](Settings& saved) { saved.keepBoards = on; });
  if (!on && keeper_) {
    keeper_->Close(clock_.Ms());
    keeper_.reset();
    store_.reset();
  } else if (on && !keeper_) {
    OpenKeeping(s_.session.AppFolder);
    if (keeper_) keeper_->Adopt(s_, 0);
    if (store_) {
      if (const std::string problem = store_->TakeProblem(); !problem.empty()) ShowMessage(problem);
    }
    clock_.Set(0);
  }
  ClockFollows();
}

void Form1::ClockFollows() {
  const bool playing = keeper_ && keeper_->Showing() &&
                       keeper_->Status().outcome != PuzzleOutcome::kFinished &&
                       keeper_->Status().outcome != PuzzleOutcome::kShown;
  clock_.Run(playing && isActiveWindow() && !isMinimized() && !longCommand_);
  if (clock_.Running()) {
    clockTick_->start();
  } else {
    clockTick_->stop();
  }
  ShowClock();
}

void Form1::ShowClock() {
  playClock_->setVisible(keeper_ != nullptr);
  if (!keeper_ || !keeper_->Showing()) {
    playClock_->clear();
    return;
  }
  const PuzzleStatus& status = keeper_->Status();
  const bool finished = status.outcome == PuzzleOutcome::kFinished;
  playClock_->setText(
      QStringLiteral("%1  %2").arg(QString::fromLatin1(OutcomeText(status.outcome)),
                                   QString::fromLatin1(ClockText(finished ? status.playedMs : clock_.Ms()))));
}

QLabel* Form1::BuildClockLabel(QWidget* parent) {
  playClock_ = new QLabel(parent);
  playClock_->setObjectName(QStringLiteral("PlayClock"));
  playClock_->setToolTip(tr("The shown puzzle: new, in progress, finished or shown, and the time played"));
  playClock_->setMinimumWidth(
      playClock_->fontMetrics().horizontalAdvance(QStringLiteral("in progress  00:00")));
  playClock_->setAlignment(Qt::AlignCenter);
  playClock_->setFrameShape(QFrame::StyledPanel);
  playClock_->setFrameShadow(QFrame::Sunken);
  clockTick_ = new QTimer(this);
  clockTick_->setInterval(1000);
  connect(clockTick_, &QTimer::timeout, this, &Form1::ShowClock);
  return playClock_;
}

void Form1::changeEvent(QEvent* event) {
  QMainWindow::changeEvent(event);
  if (clockTick_ && (event->type() == QEvent::ActivationChange || event->type() == QEvent::WindowStateChange))
    ClockFollows();
}

void Form1::ResetPuzzle() {
  nextEvent_ = KeeperEvent::kReset;
  mnupuzreset(s_, *this);
}

void Form1::NextUnfinishedPuzzle() {
  if (RefusedWhileSolving(s_.session, *this)) return;
  PlayerStore read(s_.session.AppFolder, PlayerStore::Access::kRead);
  const int n =
      NextUnfinished(store_ ? *store_ : read, s_.session.CurrentPuzzleFile, s_.session.CurrentPuzzleNumber);
  if (n == 0) {
    ShowMessage("Every puzzle of this file is finished");
    return;
  }
  s_.view.PuzNumNow = NumText(n);
  PuzNumNowEnter(s_, *this);
}

void Form1::ShowStatistics() {
  PlayerStore read(s_.session.AppFolder, PlayerStore::Access::kRead);
  PlayerStore& store = store_ ? *store_ : read;
  const std::string& file = s_.session.CurrentPuzzleFile;
  StatisticsForm dialog(store.Figures(), store.Figures(StoreFileName(file)), file, s_.session.PuzzleCount,
                        this);
  dialog.setPalette(palette());
  dialog.exec();
}

}  // namespace velmora
