// An RGB colour picker: red, green and blue scroll bars with their values and
// a swatch of the colour.
#pragma once

#include <QColor>
#include <QWidget>
#include <array>

class QFrame;
class QLabel;
class QScrollBar;

namespace velmora {

class ColorPicker : public QWidget {
  Q_OBJECT

 public:
  explicit ColorPicker(QWidget* parent = nullptr);

  QColor Color() const;
  // Shows `color` without reporting it as picked.
  void SetColor(const QColor& color);

 signals:
  // The person moved a bar.
  void ColorPicked(const QColor& color);

 private:
  void ShowValues();

  std::array<QScrollBar*, 3> bars_{};
  std::array<QLabel*, 3> values_{};
  QFrame* swatch_ = nullptr;
};

}  // namespace velmora
