// Texts between the core's std::string and Qt: the platform's 8-bit text,
// with the core's CR LF line ends shown as line breaks.
#pragma once

#include <QString>
#include <string>

namespace velmora {

inline QString Q(const std::string& text) {
  QString s = QString::fromLocal8Bit(text.data(), static_cast<qsizetype>(text.size()));
  return s.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
}

inline std::string S(const QString& text) { return text.toLocal8Bit().toStdString(); }

}  // namespace velmora
