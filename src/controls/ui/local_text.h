// Texts between the core's std::string and Qt travel as the platform's 8-bit text.
#pragma once

#include <QString>
#include <string>

namespace velmora {

// A name or a field's contents, as it stands: it goes back to the core unchanged.
inline QString QText(const std::string& text) {
  return QString::fromLocal8Bit(text.data(), static_cast<qsizetype>(text.size()));
}

// A message or label, with the core's CR LF line ends shown as line breaks.
inline QString Q(const std::string& text) {
  return QText(text).replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
}

inline std::string S(const QString& text) { return text.toLocal8Bit().toStdString(); }

}  // namespace velmora
