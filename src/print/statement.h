#pragma once

#include <QString>
#include <vector>

namespace calvora {

/// One thing that a report tells the printer. The printer keeps a current position and a current
/// font; see ReportPrinter for what each kind does with them.
struct Statement {
  enum class Kind {
    kFont,      ///< text: family
    kSize,      ///< number: points
    kEmphasis,  ///< number: 1 on, 0 off
    kTab,       ///< number: text column, from 1
    kText,      ///< text
    kEndLine,
  };

  Kind kind = Kind::kEndLine;
  int number = 0;
  QString text = {};

  friend bool operator==(const Statement&, const Statement&) = default;
};

using Statements = std::vector<Statement>;

}  // namespace calvora
