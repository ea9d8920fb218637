// The printer the Print menu's jobs use, kept for the run.
#pragma once

#include <QString>

namespace velmora {

// The system's default printer, or "PDF file" where none is installed,
// until Form5's "Print" chooses another.
class PrinterChoice {
 public:
  // Asks the system on first use: listing printers may wait on the print service.
  const QString& Current();
  void Choose(const QString& name) { current_ = name, known_ = true; }

 private:
  QString current_;
  bool known_ = false;
};

}  // namespace velmora
