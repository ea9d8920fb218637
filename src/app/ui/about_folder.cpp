// The line of the about box that says which folder the program keeps its files in.
#include "app/ui/about_folder.h"

#include <QBoxLayout>
#include <QLabel>

namespace velmora {

void ShowFolderInAbout(QWidget* about, const std::string& folder) {
  auto* line = new QLabel(QStringLiteral("Folder: ") + QString::fromLocal8Bit(folder.c_str()), about);
  line->setObjectName(QStringLiteral("AppFolder"));
  line->setTextInteractionFlags(Qt::TextSelectableByMouse);
  auto* layout = qobject_cast<QBoxLayout*>(about->layout());
  if (layout) layout->insertWidget(layout->count() - 1, line);
}

}  // namespace velmora
