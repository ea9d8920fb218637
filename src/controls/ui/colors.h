// Colours between the schemes' numbers (red in the low byte) and Qt's.
#pragma once

#include <QColor>
#include <QPalette>
#include <QWidget>
#include <cstdint>

#include "appearance/color_scheme.h"

namespace velmora {

inline QColor ToColor(uint32_t c) { return QColor(RedOf(c), GreenOf(c), BlueOf(c)); }
inline uint32_t FromColor(const QColor& c) { return Rgb(c.red(), c.green(), c.blue()); }

// `w` with `role` in `colour`, the rest of its palette kept.
inline void SetRole(QWidget* w, QPalette::ColorRole role, const QColor& colour) {
  QPalette pal = w->palette();
  pal.setColor(role, colour);
  w->setPalette(pal);
}

}  // namespace velmora
