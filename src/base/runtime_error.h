#pragma once

#include <QString>
#include <exception>

namespace calvora {

/// Numbers of the runtime errors that the program knows, as the error dialog shows them.
enum class ErrorNumber : int {
  kInvalidCall = 5,
  kOverflow = 6,
  kOutOfMemory = 7,
  kIndex = 9,
  kDivisionByZero = 11,
  kType = 13,
  kInternal = 51,
  kFileNotFound = 53,
  kFileAlreadyOpen = 55,
  kDiskFull = 61,
  kEndOfFile = 62,
  kPermission = 70,
  kPathAccess = 75,
  kPathNotFound = 76,
  kPrinter = 482,
};

/// A fault inside one procedure. It is caught by that procedure's guard (guarded.h), reported, and
/// the program goes on.
class RuntimeError : public std::exception {
 public:
  explicit RuntimeError(ErrorNumber number, const QString& text = {})
      : number_(number), text_(text.toUtf8()) {}

  [[nodiscard]] int number() const { return static_cast<int>(number_); }
  [[nodiscard]] bool is(ErrorNumber number) const { return number_ == number; }
  [[nodiscard]] const char* what() const noexcept override { return text_.constData(); }

 private:
  ErrorNumber number_;
  QByteArray text_;
};

}  // namespace calvora
