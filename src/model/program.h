#pragma once

#include <QDate>
#include <functional>

#include "model/record.h"
#include "model/settings.h"

namespace calvora {

/// Value of the current field index while the main window's first activation is pending.
inline constexpr int kFirstActivationPending = 99;

/// A file as this program read or wrote it last.
struct KnownFile {
  QString path;     ///< absolute; empty if there is no such file
  QByteArray hash;  ///< of its content at that time, see `hashOf`

  friend bool operator==(const KnownFile&, const KnownFile&) = default;
};

/// The analysis in the main window with all that belongs to it: what undo restores.
struct Analysis {
  AnalysisRecord record;
  AnalysisHeader header;
  NarrowTexts narrow;
  bool dataPresent = false;  ///< set by the save command, cleared by reset and completed save
  KnownFile file;            ///< that the analysis was read from or saved as
  bool unsaved = false;      ///< the analysis has entries that this file does not hold

  /// Whether the user must be asked before the analysis goes. A saved project takes that away, and
  /// leaves `unsaved` as it is.
  [[nodiscard]] bool asksToBeSaved() const {
    return record.flag[flag::kStatus] == QLatin1String("1");
  }

  void markUnsaved() {
    record.flag[flag::kStatus] = QStringLiteral("1");
    unsaved = true;
  }
};

/// What the windows share. Made once at program start and handed on by reference.
struct Program : Analysis {
  bool entryChanged = false;  ///< a character was typed into a box that was not left since
  int fieldIndex = 0;         ///< the field last left, or kFirstActivationPending
  QString programFolder;
  Settings settings;

  /// The printer's page orientation; what was chosen stays in force for the next report.
  bool landscape = false;

  /// The PDF file that was printed last, until the next entry; the status bar names it.
  QString printedFile;

  /// Tells what day it is; tests set their own.
  std::function<QDate()> today = [] { return QDate::currentDate(); };

  /// Empties record, flags and header and forgets the entry in progress.
  void restart() {
    resetRecord();
    header.clear();
    fieldIndex = 0;
  }

  /// Empties record, flags and the narrow displays, as before reading a file. The header stays.
  void resetRecord() {
    narrow = {};
    record.clear();
    entryChanged = false;
    dataPresent = false;
    unsaved = false;
    file = {};
  }
};

}  // namespace calvora
