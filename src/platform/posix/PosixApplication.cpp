#include "platform/posix/PosixApplication.h"

#include "base/explain.h"

namespace orrelo {

void PosixApplication::setPasteboard(const std::string& text) {
  if (pasteboardWriter_) return pasteboardWriter_(text);
  explain(ExplanationLevel::warning,
          "This host has no pasteboard: install quick::platform(), or a Platform::application of your own.");
}

void PosixApplication::share(const std::string& text) {
  if (sharer_) return sharer_(text);
  explain(ExplanationLevel::warning,
          "This host cannot share texts: install a Platform::application that can.");
}

}  // namespace orrelo
