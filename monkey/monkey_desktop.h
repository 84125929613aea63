#pragma once

#include <QDialog>
#include <QDir>
#include <QFileInfo>
#include <QPointer>
#include <random>

#include "model/program.h"
#include "overview/windows/analysen.h"
#include "read_back.h"
#include "support/recording_desktop.h"

namespace calvora::monkey {

using namespace Qt::StringLiterals;

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

/// Where the program puts a file that the dialog answered with.
inline QString savedPath(const QString& answer, const QString& extension) {
  const QString path = answer.trimmed();
  const qsizetype name = path.lastIndexOf('/'_L1) + 1;
  return path.left(path.indexOf('.'_L1, name + 1)) + '.'_L1 + extension;
}

/// A desktop whose dialogs answer at random: files that are sound, damaged, missing or no files,
/// new names and old ones, cancelled. All of them lie in one folder. Whatever the program says that
/// it saved is read back and compared.
class MonkeyDesktop final : public RecordingDesktop {
 public:
  MonkeyDesktop(Dice& dice, const QString& folder) : dice_(dice), folder_(folder) {}

  void endProgram() override {
    RecordingDesktop::endProgram();
    real.endProgram();
  }

  bool openDocument(const QString& path) override {
    require(QFileInfo::exists(path), "only what is there is opened", path);
    return dice_.percent(50);
  }

  QStringList askOpenFile(QWidget*, const FileRequest& request) override {
    if (dice_.percent(15)) return {};
    QStringList files{anyFile(request.extension)};
    while (request.several && dice_.percent(30)) files += anyFile(request.extension);
    return files;
  }

  /// A file as users choose or drop one: mostly of that kind and sound.
  QString anyFile(const QString& extension) {
    if (dice_.percent(3)) return folder_.filePath(u"gibt/es nicht."_s + extension);
    if (dice_.percent(3)) return folder_.path();
    if (dice_.percent(2)) return QString();
    if (dice_.percent(30)) damageOne(extension);
    ++loads;
    const QString kind = dice_.percent(97) ? u"*."_s + extension : u"*"_s;
    const QStringList files = folder_.entryList({kind}, QDir::Files | QDir::Hidden, QDir::Name);
    return folder_.filePath(files.isEmpty() ? anyName(extension) : dice_.oneOf(files));
  }

  /// The window says that it saved by accepting; that very moment its program holds what it wrote.
  std::optional<QString> askSaveFile(QWidget* parent, const FileRequest& request) override {
    if (dice_.percent(15)) return std::nullopt;
    if (dice_.percent(3)) return folder_.filePath(u"gibt/es nicht"_s);
    QString answer = folder_.filePath(anyName(request.extension));
    const QString path = savedPath(answer, request.extension);
    auto* window = qobject_cast<QDialog*>(parent);
    require(window != nullptr, "a window asks where to save");
    const auto* overview = dynamic_cast<analysen*>(window->parentWidget());
    delete check_;  // of a try that came to nothing
    check_ = new QObject(window);
    QObject::connect(window, &QDialog::accepted, check_, [this, path, overview] {
      ++saves;
      const QString name = program->record.flag[flag::kNameLine];
      if (overview == nullptr) {
        requireReadsBack(*program, name, path);
      } else {
        requireReadsBack(overview->project(), name, path);
      }
    });
    return answer;
  }

  std::optional<QString> askText(QWidget* parent, const TextRequest& request) override {
    return dice_.percent(20) ? real.askText(parent, request) : anyText();
  }

  std::unique_ptr<Paper> askPrinter(QWidget* parent, const PrintRequest& request) override {
    if (dice_.percent(20)) return nullptr;
    ++prints;
    file = folder_.filePath(dice_.percent(10) ? u"gibt/es nicht"_s : u"bericht"_s);
    PrintRequest turned = request;
    if (dice_.percent(10)) turned.landscape = !request.landscape;
    return RecordingDesktop::askPrinter(parent, turned);
  }

  /// A text as users and other programs would put it into a field, from sensible to hostile.
  QString anyText() {
    static const QStringList kTexts =
        u"7,5;420;-0,25;0;99999999999999999999;0,00001;1.234,5;<0,01;Größe & Söhne \"Süd\";"
        "zwei\r\nZeilen\nund\tmehr;60\n10\t20;💧 Ω \u2028 \u202e ﷽;enddat;endread;999,0,0;a|b|c;"
        "%1 %2 &x;<b>fett</b>;"_s.split(u';') +
        QStringList{QChar(0) + u"x"_s, QString(300, 'W'_L1), QString(9000, ' '_L1) + '7'_L1};
    return dice_.oneOf(kTexts);
  }

  Program* program = nullptr;  ///< the running one
  int loads = 0;
  int saves = 0;  ///< all of them read back
  int prints = 0;

 private:
  /// Few names, so that files are found again and replaced.
  QString anyName(const QString& extension) {
    static const QStringList kNames{u"probe"_s,     u"Größe 2"_s, u"a.b.c"_s, u".versteckt"_s,
                                    u"PROBE.TXT"_s, u"x "_s,      u"7"_s,     QString(200, 'n'_L1)};
    const QString name = dice_.oneOf(kNames);
    return dice_.percent(60) ? name + '.'_L1 + extension : name;
  }

  /// Leaves a file that is like one of those that are there, but not sound.
  void damageOne(const QString& extension) {
    const QStringList sound = folder_.entryList({u"*."_s + extension}, QDir::Files, QDir::Name);
    if (sound.isEmpty()) return;
    QByteArray content = bytesOf(folder_.filePath(dice_.oneOf(sound)));
    for (int count = dice_.below(5); count >= 0 && !content.isEmpty(); --count) {
      const int at = dice_.below(content.size());
      switch (dice_.below(4)) {
        case 0:
          content.truncate(at);
          break;
        case 1:
          content[at] = static_cast<char>(dice_.below(256));
          break;
        case 2:
          content.insert(at, content.mid(dice_.below(content.size()), dice_.below(40)));
          break;
        default:
          content.remove(at, dice_.below(20));
      }
    }
    put(folder_.filePath(u"kaputt%1."_s.arg(dice_.below(5)) + extension), content);
  }

  Dice& dice_;
  QDir folder_;
  QPointer<QObject> check_;  ///< of the save that was asked for last
};

}  // namespace calvora::monkey
