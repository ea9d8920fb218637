// An RGB colour picker: red, green and blue scroll bars with their values and
// a swatch of the colour.
#include "controls/ui/color_picker.h"

#include <QFrame>
#include <QGridLayout>
#include <QLabel>
#include <QScrollBar>
#include <QSignalBlocker>

namespace velmora {

ColorPicker::ColorPicker(QWidget* parent) : QWidget(parent) {
  auto* grid = new QGridLayout(this);
  grid->setContentsMargins(0, 0, 0, 0);
  static const char* const kNames[3] = {"Red", "Green", "Blue"};
  for (int i = 0; i < 3; ++i) {
    auto* caption = new QLabel(tr(kNames[i]), this);
    QScrollBar* bar = bars_[static_cast<size_t>(i)] = new QScrollBar(Qt::Horizontal, this);
    bar->setObjectName(QStringLiteral("%1Bar").arg(QLatin1String(kNames[i])));
    bar->setRange(0, 255);
    bar->setPageStep(16);
    bar->setFocusPolicy(Qt::StrongFocus);  // reachable with Tab, moved with the arrow keys
    bar->setMinimumWidth(fontMetrics().horizontalAdvance(QLatin1Char('x')) * 24);
    caption->setBuddy(bar);
    QLabel* value = values_[static_cast<size_t>(i)] = new QLabel(this);
    value->setMinimumWidth(fontMetrics().horizontalAdvance(QStringLiteral("000")));
    value->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    grid->addWidget(caption, i, 0);
    grid->addWidget(bar, i, 1);
    grid->addWidget(value, i, 2);
    connect(bar, &QScrollBar::valueChanged, this, [this] {
      ShowValues();
      emit ColorPicked(Color());
    });
  }
  swatch_ = new QFrame(this);
  swatch_->setObjectName(QStringLiteral("Swatch"));
  swatch_->setFrameShape(QFrame::Box);
  swatch_->setAutoFillBackground(true);
  swatch_->setMinimumWidth(fontMetrics().height() * 3);
  grid->addWidget(swatch_, 0, 3, 3, 1);
  ShowValues();
}

QColor ColorPicker::Color() const { return QColor(bars_[0]->value(), bars_[1]->value(), bars_[2]->value()); }

void ColorPicker::SetColor(const QColor& color) {
  const int parts[3] = {color.red(), color.green(), color.blue()};
  for (size_t i = 0; i < 3; ++i) {
    const QSignalBlocker quiet(bars_[i]);
    bars_[i]->setValue(parts[i]);
  }
  ShowValues();
}

void ColorPicker::ShowValues() {
  for (size_t i = 0; i < 3; ++i) values_[i]->setText(QString::number(bars_[i]->value()));
  QPalette pal = swatch_->palette();
  pal.setColor(QPalette::Window, Color());
  swatch_->setPalette(pal);
}

}  // namespace velmora
