#pragma once

#include <QString>

namespace calvora {

/// What the windows need of the desktop besides windows. The program uses the real one, a test one
/// that records.
class Desktop {
 public:
  Desktop() = default;
  Desktop(const Desktop&) = delete;
  Desktop& operator=(const Desktop&) = delete;
  virtual ~Desktop() = default;

  /// Ends the program at once, without a question.
  virtual void endProgram() = 0;

  /// Opens a document with the program that the system has for it. False if it has none.
  virtual bool openDocument(const QString& path) = 0;
};

/// The desktop that the program runs on.
class RealDesktop final : public Desktop {
 public:
  void endProgram() override;
  bool openDocument(const QString& path) override;
};

}  // namespace calvora
