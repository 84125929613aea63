#pragma once

#include <QDir>
#include <QPointer>
#include <random>

#include "model/program.h"
#include "support/recording_desktop.h"

namespace calvora::monkey {

/// Random choices that a seed repeats.
class Dice {
 public:
  explicit Dice(unsigned seed) : random_(seed) {}

  /// 0 to count − 1.
  int below(qsizetype count) { return static_cast<int>(random_() % static_cast<size_t>(count)); }
  bool percent(int chance) { return below(100) < chance; }

  template <class List>
  const auto& oneOf(const List& list) {
    return *std::next(std::begin(list), below(std::ssize(list)));
  }

 private:
  std::mt19937 random_;
};

/// A desktop whose dialogs answer at random: files that are sound, damaged, missing or no files,
/// new names and old ones, cancelled. All of them lie in one folder. Whatever the program says that
/// it saved is read back and compared.
class MonkeyDesktop final : public RecordingDesktop {
 public:
  MonkeyDesktop(Dice& dice, const QString& folder) : dice_(dice), folder_(folder) {}

  void endProgram() override;
  bool openDocument(const QString& path) override;
  std::optional<QString> askOpenFile(QWidget* parent, const FileRequest& request) override;
  std::optional<QString> askSaveFile(QWidget* parent, const FileRequest& request) override;
  std::optional<QString> askText(QWidget* parent, const TextRequest& request) override;
  std::unique_ptr<Paper> askPrinter(QWidget* parent, const PrintRequest& request) override;

  /// A text as users and other programs would put it into a field, from sensible to hostile.
  QString anyText();

  Program* program = nullptr;  ///< the running one
  int loads = 0;
  int saves = 0;  ///< all of them read back
  int prints = 0;

 private:
  QString anyName(const QString& extension);
  void damageOne(const QString& extension);

  Dice& dice_;
  QDir folder_;
  QPointer<QObject> check_;  ///< of the save that was asked for last
};

}  // namespace calvora::monkey
