// The about box: the rules in a few sentences, the version and the program's folder.
#include "app/ui/about_form.h"

#include <QDialog>
#include <QDialogButtonBox>
#include <QLabel>
#include <QVBoxLayout>

#include "model/version.h"

namespace velmora {
namespace {

constexpr const char* kRulesText =
    "Fill the 7 x 7 grid with 49 of the 52 cards of a deck.\n\n"
    "No rank may repeat in a row or a column.\n"
    "Cells that touch up, down, left or right never hold cards of the same suit,\n"
    "and never hold cards of consecutive ranks; king and ace count as consecutive.\n\n"
    "The puzzle gives some cards; the three cards its solution leaves out are never offered.";

}  // namespace

QWidget* NewAboutForm(QWidget* parent, const std::string& folder) {
  auto* about = new QDialog(parent);
  about->setObjectName(QStringLiteral("AboutForm"));
  about->setWindowTitle(QObject::tr("About Velmora"));
  auto* name = new QLabel(QStringLiteral("<b>Velmora</b>"), about);
  auto* rules = new QLabel(QString::fromLatin1(kRulesText), about);
  rules->setObjectName(QStringLiteral("Rules"));
  rules->setWordWrap(true);
  auto* version = new QLabel(QStringLiteral("Version " VELMORA_VERSION), about);
  version->setObjectName(QStringLiteral("Version"));
  auto* where = new QLabel(QStringLiteral("Folder: ") + QString::fromLocal8Bit(folder.c_str()), about);
  where->setObjectName(QStringLiteral("AppFolder"));
  where->setTextInteractionFlags(Qt::TextSelectableByMouse);
  auto* ok = new QDialogButtonBox(QDialogButtonBox::Ok, about);
  QObject::connect(ok, &QDialogButtonBox::accepted, about, &QDialog::accept);
  auto* layout = new QVBoxLayout(about);
  layout->addWidget(name);
  layout->addWidget(rules);
  layout->addWidget(version);
  layout->addWidget(where);
  layout->addWidget(ok);
  layout->setSizeConstraint(QLayout::SetFixedSize);
  return about;
}

}  // namespace velmora
