// What the subcommands that draw with Qt share.
#include "cmd_print_app.h"

#include <cstdio>
#include <cstdlib>  // setenv

namespace velmora::cli {

std::unique_ptr<QGuiApplication> PageApplication() {
  ::setenv("QT_QPA_PLATFORM", "offscreen", 1);
  // Qt's notes about its surroundings (no XDG_RUNTIME_DIR under cron or root)
  // are no concern of a command that succeeds; its errors still show.
  qInstallMessageHandler([](QtMsgType type, const QMessageLogContext&, const QString& text) {
    if (type == QtCriticalMsg || type == QtFatalMsg) std::fprintf(stderr, "%s\n", qPrintable(text));
  });
  static int argc = 1;
  static char name[] = "velmora-cli";
  static char* argv[] = {name, nullptr};
  return std::make_unique<QGuiApplication>(argc, argv);
}

}  // namespace velmora::cli
