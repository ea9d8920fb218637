// Form2, "Velmora Options": colour schemes (preview, add, replace, delete,
// apply) and the size of the program's text.
#include "appearance/ui/form2.h"

#include <QApplication>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QVBoxLayout>
#include <cmath>

#include "appearance/color_scheme.h"
#include "appearance/ui/scheme_preview.h"
#include "controls/ui/color_picker.h"
#include "controls/ui/colors.h"
#include "controls/ui/frames.h"
#include "controls/ui/local_text.h"

namespace velmora {
namespace {

constexpr double kSizeScales[4] = {0.85, 1.0, 1.2, 1.45};

QPushButton* MakeButton(const QString& name, const QString& text, const QString& tip, QWidget* parent) {
  auto* b = new QPushButton(text, parent);
  b->setObjectName(name);
  b->setToolTip(tip);
  b->setAutoDefault(false);  // Enter belongs to the list
  return b;
}

}  // namespace

void ApplyTextSize(TextSize size) {
  static const QFont platform = QApplication::font();
  QFont font = platform;
  if (platform.pointSizeF() > 0) {
    font.setPointSizeF(platform.pointSizeF() * kSizeScales[size]);
  } else {
    font.setPixelSize(static_cast<int>(std::lround(platform.pixelSize() * kSizeScales[size])));
  }
  QApplication::setFont(font);
}

Form2::Form2(const std::string& appFolder, Appearance& look, UserInterface& ui, QWidget* parent,
             std::function<void()> applied)
    : QDialog(parent), appFolder_(appFolder), look_(look), ui_(ui), applied_(std::move(applied)) {
  setObjectName(QStringLiteral("Form2"));
  setWindowTitle(QStringLiteral("Velmora Options"));
  // Controls are made in their tab order.
  const CommandRow commands = MakeCommandRow(this, QStringLiteral("Apply"), QStringLiteral("Apply changes"),
                                             QStringLiteral("Exit without applying changes"), RowPlace::kTop);
  command1_ = commands.command1;
  command2_ = commands.command2;
  connect(command1_, &QPushButton::clicked, this, &Form2::Apply);
  connect(command2_, &QPushButton::clicked, this, &Form2::reject);

  frame_ = new QGroupBox(this);
  frame_->setObjectName(QStringLiteral("Frame1"));
  BuildSchemeFrame(frame_);

  auto* sizeFrame = new QGroupBox(QStringLiteral("Size"), this);
  sizeFrame->setObjectName(QStringLiteral("Frame2"));
  auto* sizeLayout = new QHBoxLayout(sizeFrame);
  const TextSize saved = LoadSettings(appFolder_).textSize;
  for (int i = 0; i < 4; ++i) {
    QRadioButton* option = sizes_[static_cast<size_t>(i)] =
        new QRadioButton(QLatin1String(kTextSizeNames[i]), sizeFrame);
    option->setObjectName(QStringLiteral("Size%1").arg(i));
    option->setChecked(i == saved);
    sizeLayout->addWidget(option);
  }
  sizeLayout->addStretch(1);

  auto* outer = new QVBoxLayout(this);
  outer->addLayout(commands.layout);
  outer->addWidget(frame_);
  outer->addWidget(sizeFrame);
  outer->setSizeConstraint(QLayout::SetFixedSize);

  FillList();
  shownName_ = look_.ColorSchemeName;
  frame_->setTitle(QText("Color Scheme: " + shownName_));
  colPik1_->SetColor(ToColor(look_.Scheme[kSchemeBackground]));
  {
    // Showing the contrast of the scheme is no change to it: only the user's
    // own move of the bar recomputes the button face.
    const QSignalBlocker quiet(contrastV_);
    contrastV_->setValue(ButtonContrast(look_.Scheme));
  }
  ShowColors();
  list1_->setFocus();
}

void Form2::BuildSchemeFrame(QGroupBox* frame) {
  colPik1_ = new ColorPicker(frame);
  colPik1_->setObjectName(QStringLiteral("ColPik1"));
  connect(colPik1_, &ColorPicker::ColorPicked, this, [this](const QColor& c) {
    look_.Scheme[kSchemeBackground] = FromColor(c);
    const QSignalBlocker quiet(contrastV_);
    contrastV_->setValue(ButtonContrast(look_.Scheme));
    ShowColors();
  });

  auto* contrastCaption = new QLabel(tr("Button contrast"), frame);
  contrastV_ = new QScrollBar(Qt::Horizontal, frame);
  contrastV_->setObjectName(QStringLiteral("ContrastV"));
  contrastV_->setRange(-kMaxContrast, kMaxContrast);
  contrastV_->setPageStep(10);
  contrastV_->setFocusPolicy(Qt::StrongFocus);
  contrastV_->setToolTip(tr("Buttons darker (left) or lighter (right) than the background"));
  contrastCaption->setBuddy(contrastV_);
  connect(contrastV_, &QScrollBar::valueChanged, this, [this](int value) {
    SetButtonContrast(look_.Scheme, value);
    ShowColors();
  });

  list1_ = new QListWidget(frame);
  list1_->setObjectName(QStringLiteral("List1"));
  QFont fixed = font();  // the chosen text size, in a fixed-pitch face
  fixed.setFamilies({QStringLiteral("Courier New")});
  fixed.setStyleHint(QFont::TypeWriter);
  fixed.setFixedPitch(true);
  list1_->setFont(fixed);
  list1_->setMinimumHeight(list1_->fontMetrics().height() * 7);
  // Choosing an item previews it; Enter (or a double click) reads it again.
  connect(list1_, &QListWidget::itemSelectionChanged, this, [this] {
    if (!list1_->selectedItems().isEmpty()) Choose();
  });
  connect(list1_, &QListWidget::itemActivated, this, &Form2::Choose);

  QBoxLayout* buttons = BuildSchemeButtons(frame);

  preview_ = new SchemePreview(frame);
  preview_->setObjectName(QStringLiteral("Preview"));

  auto* grid = new QGridLayout(frame);
  grid->addWidget(colPik1_, 0, 0, 1, 2);
  grid->addWidget(preview_, 0, 2);
  auto* contrast = new QHBoxLayout;
  contrast->addWidget(contrastCaption);
  contrast->addWidget(contrastV_, 1);
  grid->addLayout(contrast, 1, 0, 1, 3);
  grid->addWidget(list1_, 2, 0, 1, 2);
  grid->addLayout(buttons, 2, 2);
}

QBoxLayout* Form2::BuildSchemeButtons(QWidget* frame) {
  struct Command {
    const char* name;
    const char* text;
    const char* tip;
  };
  static constexpr Command kCommands[4] = {{"ShowSch", "View", "View current color setting"},
                                           {"RepSch", "Replace", "Replace the current color scheme"},
                                           {"DelSch", "Delete", "Delete the color scheme"},
                                           {"AddSch", "Add", "Add this color scheme"}};
  auto* buttons = new QVBoxLayout;
  for (size_t i = 0; i < 4; ++i) {
    schemeButtons_[i] = MakeButton(QLatin1String(kCommands[i].name), QLatin1String(kCommands[i].text),
                                   QLatin1String(kCommands[i].tip), frame);
    buttons->addWidget(schemeButtons_[i]);
  }
  buttons->addStretch(1);
  connect(schemeButtons_[0], &QPushButton::clicked, this, &Form2::ShowColors);
  connect(schemeButtons_[1], &QPushButton::clicked, this, [this] {
    list_.listIndex = SelectedRow();
    RepSch(appFolder_, look_, ui_, list_);
  });
  connect(schemeButtons_[2], &QPushButton::clicked, this, [this] {
    list_.listIndex = SelectedRow();
    if (DelSch(appFolder_, look_, ui_, list_)) FillList();
  });
  connect(schemeButtons_[3], &QPushButton::clicked, this, [this] {
    if (AddSch(appFolder_, look_, ui_, list_)) FillList();
  });
  return buttons;
}

int Form2::SelectedRow() const { return list1_->selectedItems().isEmpty() ? -1 : list1_->currentRow(); }

void Form2::FillList() {
  const QSignalBlocker quiet(list1_);
  FillSchemeList(appFolder_, list_);
  list1_->clear();
  for (const std::string& item : list_.items) list1_->addItem(QText(item));
}

void Form2::Choose() {
  list_.listIndex = list1_->currentRow();
  if (!list_.HasSelection()) return;
  const std::string name = list_.Selected();
  ChooseScheme(appFolder_, look_, ui_, list_);
  shownName_ = name + kSchemeExtension;
  frame_->setTitle(QText("Color Scheme: " + name));
  colPik1_->SetColor(ToColor(look_.Scheme[kSchemeBackground]));
  const QSignalBlocker quiet(contrastV_);
  contrastV_->setValue(ButtonContrast(look_.Scheme));
  ShowColors();
}

void Form2::ShowColors() {
  const SchemeColors c =
      EffectiveColors(look_.Scheme, shownName_, FromColor(QApplication::palette().color(QPalette::Button)));
  QPalette pal = palette();
  pal.setColor(QPalette::Window, ToColor(c[kSchemeBackground]));
  pal.setColor(QPalette::Button, ToColor(c[kSchemeBackground]));
  setPalette(pal);
  for (QPushButton* b : {command1_, command2_}) SetRole(b, QPalette::Button, ToColor(c[kSchemeButtonFace]));
  for (QPushButton* b : schemeButtons_) SetRole(b, QPalette::Button, ToColor(c[kSchemeButtonFace]));
  SetRole(list1_, QPalette::Base, ToColor(c[kSchemeTitleBox]));
  preview_->SetColors(ToColor(c[kSchemeBackground]), ToColor(c[kSchemeTitleBox]),
                      ToColor(c[kSchemeButtonFace]));
}

void Form2::Apply() {
  list_.listIndex = SelectedRow();
  ApplyChosenScheme(look_, list_);
  for (int i = 0; i < 4; ++i) {
    if (!sizes_[static_cast<size_t>(i)]->isChecked()) continue;
    const auto size = static_cast<TextSize>(i);
    ChangeSettings(appFolder_, [size](Settings& saved) { saved.textSize = size; });
    ApplyTextSize(size);
  }
  if (applied_) applied_();
  accept();
}

void Form2::reject() {
  ReadColorScheme(appFolder_, look_, ui_, look_.ColorSchemeName);
  QDialog::reject();
}

}  // namespace velmora
