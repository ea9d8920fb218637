// The desktop program: the main window over the program's folder.
#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QStringList>
#include <cstdlib>

#include "app/app_folder.h"
#include "app/settings.h"
#include "app/startup.h"
#include "app/ui/form1.h"
#include "appearance/ui/form2.h"
#include "files/file_commands.h"
#include "model/version.h"

namespace {

std::string Local(const QString& text) { return text.toLocal8Bit().toStdString(); }

}  // namespace

// velmora [--folder DIR] [FILE]
int main(int argc, char** argv) {
  QElapsedTimer sinceStart;
  sinceStart.start();
  QApplication app(argc, argv);
  QApplication::setApplicationName(QString::fromLatin1(velmora::kApplicationName));
  QApplication::setApplicationVersion(QStringLiteral(VELMORA_VERSION));

  // `--folder DIR` runs the program over another folder (tests, portable use);
  // FILE, a puzzle file, is opened at its first puzzle. Both are taken as
  // named from where the program was started, before the working folder changes.
  QString folderOption, file;
  const QStringList args = QCoreApplication::arguments();
  for (int i = 1; i < args.size(); ++i) {
    if (args[i] == QLatin1String("--folder") && i + 1 < args.size()) {
      folderOption = args[++i];
    } else if (file.isEmpty() && !args[i].startsWith(QLatin1Char('-'))) {
      file = QFileInfo(args[i]).absoluteFilePath();
    }
  }
  const velmora::ProgramFolders folders =
      velmora::SetUpProgramFolders(Local(folderOption), velmora::ExecutableFolder());
  // Relative names and the delete command's work file land in the program's
  // folder, never in whatever folder the desktop started us in.
  QDir::setCurrent(QString::fromLocal8Bit(folders.app.c_str()));

  velmora::ApplyTextSize(velmora::LoadSettings(folders.app).textSize);
  velmora::Form1 window;
  if (std::getenv("VELMORA_TIMING")) window.EnableTimingLog(sinceStart);
  window.State().session.ShippedFolder = folders.shipped;
  window.StartUp(folders.app);
  if (!file.isEmpty()) {
    velmora::OpenPuzzleFile(window.State(), window, Local(file));
    window.ControlsChanged();
  }
  window.show();
  return QApplication::exec();
}
