// The user interface of the subcommands that only report.
#include "printed_messages.h"

#include <cstdio>

namespace velmora::cli {

void PrintedMessages::ShowMessage(const std::string& text) {
  std::string out;
  for (size_t i = 0; i < text.size(); ++i) {
    const bool lineBreak = breaks_ == LineBreaks::kOneBreak && text.compare(i, 2, "\r\n") == 0;
    out += lineBreak ? '\n' : text[i];
    i += lineBreak ? 1 : 0;
  }
  std::printf("%s\n", out.c_str());
}

}  // namespace velmora::cli
