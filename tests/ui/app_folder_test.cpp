// The per-user folder velmora-cli computes is the one Qt gives the desktop
// program, and the about box names the folder in use.
#include <QStandardPaths>

#include "app/app_folder.h"
#include "ui_support.h"

namespace velmora::test {
namespace {

TEST(AppFolder, PerUserFolderIsQtsAppDataLocation) {
  const QString oldName = QCoreApplication::applicationName();
  QCoreApplication::setApplicationName(QString::fromLatin1(kApplicationName));
  struct Case {
    std::optional<std::string> xdg, home;
  };
  for (const Case& c : {Case{"/data/x", "/home/ann"}, Case{std::nullopt, "/home/ann/"},
                        Case{std::nullopt, "//home//ann/./b/../"}, Case{std::nullopt, ""}}) {
    ScopedEnv xdg("XDG_DATA_HOME", c.xdg), home("HOME", c.home);
    const QString qt = QStandardPaths::writableLocation(QStandardPaths::AppDataLocation) + "/";
    EXPECT_EQ(PerUserFolder(), qt.toStdString()) << c.xdg.value_or("(unset)") << " " << c.home.value_or("");
  }
  QCoreApplication::setApplicationName(oldName);
}

TEST(AppFolder, AboutBoxNamesTheFolderInUse) {
  Window win;
  win.Trigger("mnuabout");
  EXPECT_EQ(win.Get<QLabel>("AppFolder")->text().toStdString(), "Folder: " + win.s().AppFolder);
}

}  // namespace
}  // namespace velmora::test
