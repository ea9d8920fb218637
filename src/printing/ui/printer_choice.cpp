// The printer the Print menu's jobs use, kept for the run.
#include "printing/ui/printer_choice.h"

#include <QPrinterInfo>

#include "printing/print_commands.h"

namespace velmora {

const QString& PrinterChoice::Current() {
  if (!known_) {
    const QString system = QPrinterInfo::defaultPrinterName();
    Choose(QPrinterInfo::availablePrinterNames().contains(system) ? system
                                                                  : QString::fromLatin1(kPdfPrinterName));
  }
  return current_;
}

}  // namespace velmora
