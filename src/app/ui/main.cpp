// The desktop program: the main window over the program's folder.
#include <QApplication>
#include <QElapsedTimer>
#include <QStringList>
#include <cstdlib>

#include "app/startup.h"
#include "app/ui/form1.h"
#include "appearance/ui/form2.h"

int main(int argc, char** argv) {
  QElapsedTimer sinceStart;
  sinceStart.start();
  QApplication app(argc, argv);
  QApplication::setApplicationName(QStringLiteral("Velmora"));
  QApplication::setApplicationVersion(QStringLiteral("1.0"));

  // `--folder DIR` runs the program over another folder (tests, portable use).
  QString folder = QCoreApplication::applicationDirPath();
  const QStringList args = QCoreApplication::arguments();
  for (int i = 1; i + 1 < args.size(); ++i) {
    if (args[i] == QLatin1String("--folder")) folder = args[i + 1];
  }

  velmora::ApplyTextSize(velmora::SavedTextSize(velmora::FolderWithSlash(folder.toLocal8Bit().toStdString())));
  velmora::Form1 window;
  if (std::getenv("VELMORA_TIMING")) window.EnableTimingLog(sinceStart);
  window.StartUp(folder.toLocal8Bit().toStdString());
  window.show();
  return QApplication::exec();
}
