// Small builders the dialogs share: a titled frame, a widget given its name.
#pragma once

#include <QGroupBox>
#include <QString>

namespace velmora {

// A titled frame known by `name`; an empty tip leaves it without one.
inline QGroupBox* Frame(const QString& name, const QString& title, const QString& tip, QWidget* parent) {
  auto* box = new QGroupBox(title, parent);
  box->setObjectName(name);
  if (!tip.isEmpty()) box->setToolTip(tip);
  return box;
}

template <typename T>
T* Named(T* widget, const QString& name) {
  widget->setObjectName(name);
  return widget;
}

}  // namespace velmora
