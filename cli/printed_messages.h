// The user interface of the subcommands that only report: each message on
// standard output, one line each; every question is answered Yes.
#pragma once

#include <string>

#include "model/user_interface.h"

namespace velmora::cli {

class PrintedMessages : public UserInterface {
 public:
  // Whether a message's CR LF is printed as it is or as one line break.
  enum class LineBreaks { kKept, kOneBreak };
  explicit PrintedMessages(LineBreaks breaks) : breaks_(breaks) {}

  void ShowMessage(const std::string& text) override;

 private:
  LineBreaks breaks_;
};

}  // namespace velmora::cli
