#include <sys/resource.h>
#include <sys/stat.h>

#include <QRegularExpression>
#include <QTemporaryDir>
#include <optional>
#include <random>

#include "base/windows1252.h"
#include "chem/subcalc.h"
#include "entry/key_filter.h"
#include "storage/analysis_file.h"
#include "storage/line_file.h"
#include "storage/settings.h"
#include "support/scripted_questions.h"
#include "support/tables.h"

using namespace calvora;

namespace {

/// The analysis as header slots 0 to 7 and fields: |Projekt||||||| 2=72500'7,25;4=0'0,00 has a
/// project, field 2 with the value 7.25 and the text 7,25, and field 4.
void setState(Program& program, const QString& header, const QString& fields) {
  for (int slot = 0; slot <= 7; ++slot) program.header[slot] = header.section(u'|', slot, slot);
  for (const QString& field : fields.split(u';', Qt::SkipEmptyParts)) {
    const int index = field.section(u'=', 0, 0).toInt();
    const QString raw = field.section(u'\'', 0, 0).section(u'=', 1);
    program.record.value[index] = FixedPoint::fromRaw(raw.toLongLong());
    program.record.text[index] = field.section(u'\'', 1);
  }
}

QString stateOf(const Program& program) {
  QStringList header;
  QStringList fields;
  for (int slot = 0; slot <= 7; ++slot) header += program.header[slot];
  for (int i = 0; i <= 40; ++i) {
    const qint64 raw = program.record.value[i].raw();
    const QString& text = program.record.text[i];
    if (raw != 0 || !text.isEmpty()) fields += u"%1=%2'%3"_s.arg(i).arg(raw).arg(text);
  }
  return header.join(u'|') + u' ' + fields.join(u';');
}

QString joined(const CompanyLines& lines) {
  return QStringList(lines.begin(), lines.end()).join(u';');
}

QByteArray golden(const char* name) {
  return bytesOf(QFINDTESTDATA(u"storage/golden/"_s + QLatin1String(name)));
}

// A header whose slots hold their numbers, and records.
const QByteArray kHeader = "'0'\r\n'1'\r\n'2'\r\n'3'\r\n'4'\r\n'5'\r\n'6'\r\n'7'\r\n'ende'\r\n";
const QByteArray kOne = "1,1,'a'\r\n";
const QByteArray kThree = "3,1,'b'\r\n";
const QByteArray kEnd = "999,0,0\r\n";
constexpr qsizetype kLongestLine = 65'536;
constexpr qsizetype kLargestFile = 4'194'304;

/// A line of that many bytes, line feed included, that is skipped.
QByteArray skipped(qsizetype size) {
  return "100,0,'" + QByteArray(size - 9, 'x') + "'\n";
}

/// The content and lines that are skipped, up to that size.
QByteArray filled(QByteArray content, qsizetype size) {
  while (size - content.size() > 2000) content += skipped(1000);
  return content + skipped(size - content.size());
}

}  // namespace

class StorageTest : public QObject {
  Q_OBJECT

 private slots:
  void init() {
    folder_.emplace();
    QCOMPARE(chmod(qPrintable(folder_->path()), 0777), 0);  // also for the ordinary user
  }

  void analysesAreWrittenByteForByte() {
    const QString full =
        u" Füllung Süd.cva |Fernwärme Süd, Bauabschnitt \"2\"|2026-017|Vorlauf\r\n\nnach Filter|"
        "Stadtwerke Möhne, Größe & Söhne|20.10.2026|21.10.2026|"
        "€‚ƒ„…†‡ˆ‰Š‹ŒŽ‘’“”•–—˜™š›œžŸ ¡ÿ 💧\u2028Zeile 2"_s;
    const QString only = u"nur Kopf.2|Neubau|0815|Rücklauf|Härtel €||01.02.2026|"_s;
    for (const auto& [name, header, fields] :
         {std::tuple{"full.cva", full,
                     u"1=9223372036854775807'1E+15;2=72500'7,25;3=-5000'-0,5000;4=0'0,00;"
                     "5=1'0,0001;6=-9223372036854775808'-1E+15;7=80000'8,00;8=82000'<8,2;"
                     "9=73050'7,31;10=0'n.b.;11=1525425'152,5;12=1000000'100,0;13=-1'0,0;"
                     "14=123000'12,3;15=-100000'-10,0;20=500'0,1;21=123'0,0;"
                     "22=12345678000'1234567,8;23=600000'60,0;24=100100'10,0;25=90'<0,01;"
                     "26=100'<0,01"_s},
          std::tuple{"empty.cva", u"leer.cva"_s, QString()},
          std::tuple{"header_only.cva", only,
                     u"0=1'never;5=30000';16=1'never;19=1'never;27=1'never;35=75037'7,50;"
                     "40=1'never"_s}}) {
      Program program;
      setState(program, header, fields);
      const QByteArray file = golden(name);
      QCOMPARE(analysisContent(program, nameLine(program.header[0], u"cva"_s)), file);
      put("new.cva", file);
      Program again;
      QVERIFY(readAnalysis(again, at("new.cva"), [] {}));
      QCOMPARE(analysisContent(again, again.header[0]), file);
    }
    QByteArray all;
    for (int byte = 0; byte < 256; ++byte) all += static_cast<char>(byte);
    QCOMPARE(toWindows1252(fromWindows1252(all)), all);
  }

  void settingsAreWrittenByteForByte() {
    Settings settings;
    for (const int slot : {0, 5, 6, 7, 8, 13, 20}) settings.slot[slot] = u"never stored"_s;
    settings.slot[10] = u"D:\\Wässer\\Daten, alt"_s;
    settings.segments = {u"Wasser & Wärme GmbH       "_s, u"Süßer Weg 3, Hof    "_s, u"    "_s,
                         u"\"post\"@wasser.example"_s};
    writeSettings(settings, folder_->path(), setting::kFirstSegment);
    QCOMPARE(bytesOf(at("cvra.ini")), golden("cvra.ini"));
    // Reading and changing the data folder leaves the company line.
    Settings again;
    readSettings(again, folder_->path());
    QCOMPARE(again.slot[setting::kPrintLine],
             u"Wasser & Wärme GmbH       Süßer Weg 3, Hof        'post'@wasser.example"_s);
    again.slot[setting::kDataFolder] = u"E:\\neu"_s;
    writeSettings(again, folder_->path(), setting::kDataFolder);
    QCOMPARE(bytesOf(at("cvra.ini")),
             golden("cvra.ini").replace("D:\\W\xE4sser\\Daten, alt", "E:\\neu"));
    // The print line is cut, but no segment is.
    settings.segments.fill(QString(40, u'ü'));
    writeSettings(settings, folder_->path(), setting::kFirstSegment);
    readSettings(again, folder_->path());
    QCOMPARE(again.slot[setting::kPrintLine], QString(115, u'ü'));
    QCOMPARE(linesOfSegmentList(again.slot[setting::kSegmentList]), settings.segments);
  }

  /// Reading computes once more than typing did, which may still complete the hardness and what
  /// follows from it, as any further entry does.
  void readingAnAnalysisAndComputingGivesWhatTypingOnGives() {
    std::mt19937 random(20261122);
    const auto below = [&](int count) { return static_cast<int>(random() % unsigned(count)); };
    for (int round = 0; round < 1000; ++round) {
      ScriptedQuestions questions;  // answers all; contradictions are part of typing
      Program typed;
      subcalc typing(typed.record, typed.fieldIndex, typed.narrow, questions);
      QString entries;
      for (const int index : typedFields()) {
        if (below(4) == 0) continue;
        const int most = QList{1, 2000, 13, 95, 3, 8, 3}.value(index, 60);
        const QString text = u"%1,%2"_s.arg(below(most)).arg(below(1000));
        entries += u" %1=%2"_s.arg(index).arg(text);
        int status = 0;
        typed.fieldIndex = index;
        typing.checkeingabe(index, text, status);
        typing.rechenlauf();
      }
      put("typed.cva", analysisContent(typed, {}));
      typed.fieldIndex = 0;
      typing.rechenlauf();
      Program read;
      QVERIFY(readAnalysis(read, at("typed.cva"), [] {}));
      subcalc(read.record, read.fieldIndex, read.narrow, questions).rechenlauf();
      const auto results = [&](const Program& program) {
        QStringList texts{program.narrow.leitfähigkeitAusIonen, program.narrow.phNäherung};
        for (int i = 0; i <= 40; ++i) texts += program.record.text[i];
        return texts.join(u';') + entries;
      };
      QCOMPARE(results(read), results(typed));
      QCOMPARE(questions.errors, QStringList());
    }
  }

  /// A line between two others => what is read, with what those hold as a and b.
  void aRecordIsReadAsFarAsItMakesSense() {
    compare(
        "2,7.25,'7,25'=>a;2=72500'7,25;b | 0,1,'x'=>0=10000'x;a;b | 16,1,'x'=>a;b;16=10000'x | "
        "40,1,'x'=>a;b;40=10000'x | 41,1,'x'=>stopped a | 98,1,'x'=>stopped a | "
        "99,1,'x'=>stopped a | 100,1,'x'=>a;b | 998,1,'x'=>a;b | 999,0,0=>a | "
        "-1,1,'x'=>stopped a | 1.5,1,'x'=>stopped a | x,1,'x'=>stopped a | 'ende'=>stopped a | "
        "2=>stopped a | 2,7=>stopped a | 2,7,'7=>stopped a | 2,7,'7',8,'x'=>a;2=70000'7;b | "
        "2,7,25,'x'=>stopped a;b | 2,7,7=>a;2=70000'7;b |   2 ,  7 ,   '7'=>a;2=70000'7;b | "
        "2,7,' 7 '=>a;2=70000' 7 ;b | 2,abc,'x'=>stopped a | 2,nan,'x'=>stopped a | "
        "2,inf,'x'=>stopped a | 2,-,'x'=>stopped a | 2,1e3,'x'=>stopped a | "
        "2,1.5E+03,'x'=>stopped a | 2,7.2.5,'x'=>stopped a | 2,.5,'x'=>a;2=5000'x;b | "
        "2,-.5,'x'=>a;2=-5000'x;b | 2,-0.0001,'x'=>a;2=-1'x;b | 2,007.50000,'x'=>a;2=75000'x;b | "
        "2,7.00005,'x'=>a;2=70000'x;b | 2,7.00015,'x'=>a;2=70002'x;b | "
        "2,7.0000500001,'x'=>a;2=70001'x;b | 2,-7.00015,'x'=>a;2=-70002'x;b | "
        "2,922337203685477.5807,'x'=>a;2=9223372036854775807'x;b | "
        "2,-922337203685477.5808,'x'=>a;2=-9223372036854775808'x;b | "
        "2,922337203685477.5808,'x'=>stopped a | 2,-922337203685477.5809,'x'=>stopped a | "
        "2,922337203685477.58076,'x'=>stopped a | 2,99999999999999999999999999,'x'=>stopped a | "
        // What the program writes agrees; a text that shows another number is left out and told.
        "2,7.25,'-7,25'=>stopped a;b | 2,2.675,'2,68'=>a;2=26750'2,68;b | "
        "2,2.6751,'2,67'=>stopped a;b | 2,7.2568,'7,256783'=>a;2=72568'7,256783;b | "
        "2,7.2567,'7,256783'=>stopped a;b | 2,7,'7,'=>a;2=70000'7,;b | 2,7.6,'7'=>stopped a;b | "
        "21,0.05,'0,0'=>a;b;21=500'0,0 | 21,0.06,'0,0'=>stopped a;b | "
        "4,0.001,'0,0000'=>a;b;4=10'0,0000 | 4,0.002,'0,0000'=>stopped a;b | "
        "5,0.001,'0,0000'=>stopped a;b | 12,-5,'<0,01'=>a;b;12=-50000'<0,01 | "
        "12,3,'<0,01'=>stopped a;b | 8,12.5,'>12,50'=>a;b;8=125000'>12,50 | "
        "10,7,'>12,5'=>stopped a;b | 2,7,'8.5'=>a;2=70000'8.5;b | "
        "2,922337203685477.5807,'1E+15'=>a;2=9223372036854775807'1E+15;b | "
        "2,900000000000000.0312,'900000000000000,0'=>a;2=9000000000000000312'900000000000000,0;b",
        [this](const QStringList& given) {
          put("odd.cva", fileOf(kHeader + kOne + given[0].toLatin1() + "\r\n" + kThree + kEnd));
          QString found = read("odd.cva").remove(u"complete "_s).remove(u"0|1|2|3|4|5|6|7 "_s);
          return found.replace(u"1=10000'a"_s, u"a"_s).replace(u"3=10000'b"_s, u"b"_s);
        });
  }

  void aForeignFileIsReadAsFarAsItGoes() {
    const auto row = [this](const char* name, const QByteArray& content, const QString& expected) {
      put("foreign.cva", fileOf(content));
      QCOMPARE(name + (' '_L1 + read("foreign.cva")), name + (' '_L1 + expected));
    };
    const auto header = [](auto from, auto to) { return QByteArray(kHeader).replace(from, to); };
    const QByteArray start = kHeader + kOne;
    const QString both = u"complete 0|1|2|3|4|5|6|7 1=10000'a;3=10000'b"_s;
    const QString one = u"stopped 0|1|2|3|4|5|6|7 1=10000'a"_s;
    row("empty", "", u"stopped ||||||| "_s);
    row("open header text", header("3'", "3"), u"stopped 0|1|2||||| "_s);
    row("other marker", header("ende", "Ende, Kopf") + kOne + kThree + kEnd, both);
    row("blanks", header("5", " 5 ") + kOne + kThree + kEnd,
        QString(both).replace(u"5|"_s, u" 5 |"_s));
    const QString cut = u"stopped 0|1|2|3|4|5|6|7 1=10000'a;3=10000'b"_s;
    row("no end record", start + kThree, cut);
    row("blank line for an end record", start + kThree + "\r\n", cut);
    row("lines after the end record", start + kThree + kEnd + kOne + "x", both);
    row("line feeds only", QByteArray(start + kThree + kEnd).replace("\r", ""), both);
    row("UTF-8 with a mark", "\xEF\xBB\xBF" + header("1", "ö") + kOne + kThree + kEnd,
        QString(both).replace(u"0|1"_s, u"ï»¿\"0\"|Ã¶"_s));
    row("line of 64 KiB", start + skipped(kLongestLine + 1) + kThree + kEnd, both);
    row("longer line", start + skipped(kLongestLine + 2) + kThree, one);
    row("longer header line", header("7", QByteArray(kLongestLine, 'x')),
        u"stopped 0|1|2|3|4|5|6| "_s);
    row("line without end", start + QByteArray(kLargestFile, 'x'), one);
    row("file of 4 MiB", filled(start + kThree, kLargestFile - kEnd.size()) + kEnd, both);
    row("larger file, a line ends at 4 MiB", filled(start, kLargestFile) + kThree, one);
    row("larger file, a line ends behind", filled(start, kLargestFile + 1) + kThree, one);
  }

  void aFileOfAnySizeIsReadInBoundedMemory() {
    put("huge.cva", fileOf(kHeader + kOne));
    QVERIFY(QFile::resize(at("huge.cva"), qint64{256} << 20));
    const auto mostMegabytes = [] {
      rusage usage{};
      getrusage(RUSAGE_SELF, &usage);
      return usage.ru_maxrss / 1024;
    };
    const int more = asOrdinaryUser([&] {
      const auto before = mostMegabytes();
      const bool asFarAsAllowed = read("huge.cva") == u"stopped 0|1|2|3|4|5|6|7 1=10000'a"_s;
      return asFarAsAllowed ? static_cast<int>(qMin(mostMegabytes() - before, 254L)) : 255;
    });
    QVERIFY2(more >= 0 && more < 100, qPrintable(QString::number(more)));
    // A file that the system makes up says that it is empty.
    QCOMPARE(LineReader::ofFile(u"/proc/self/status"_s).text().section(u':', 0, 0), u"Name"_s);
  }

  void whatCannotBeOpenedLeavesTheAnalysisUntouched() {
    put("secret.cva", fileOf(kHeader + kOne + kEnd));
    QCOMPARE(chmod(qPrintable(at("secret.cva")), 0), 0);
    compare("vanished.cva=>53 | vanished/a.cva=>53 | secret.cva/a.cva=>53 | .=>75 | secret.cva=>75",
            [this](const QStringList& given) {
              return QString::number(asOrdinaryUser([&] {
                const QString how = read(qPrintable(given[0]));
                return how.endsWith(u" -|-|-|-|-|-|-|- 5=1'old"_s) ? how.left(2).toInt() : 1;
              }));
            });
  }

  /// Lines => slots that have a text, then the segments.
  void settingsAreReadAsFarAsTheFileIsSound() {
    compare(
        "5,'A '¶6,'B'¶7,'C'¶8,'D'¶10,'X'=>5=A BCD;6=A |B|C|D|;7=C;8=D;10=X; A ;B;C;D | "
        "5,'A|b'¶8,'D'¶10,'X'=>5=A|bD;6=A/b|||D|;8=D;10=X; A|b;;;D | "
        "10,'X'¶8,'D'¶0,'Z'¶20,'Y'¶5,'A'=>0=Z;5=AD;6=A|||D|;8=D;10=X;20=Y; A;;;D | "
        "5,'A'¶10,'X'¶10,'Y'=>5=A;6=A||||;10=Y; A;;; | "
        "5,'A'¶6,'B'¶21,'Z'¶10,'X'=>5=A;6=B; A;B;; | 5,'A'¶-1,'Z'¶10,'X'=>5=A; A;;; | "
        "5,'A'¶x,'Z'¶10,'X'=>5=A; A;;; | 5,'A'¶6¶10,'X'=>5=A; A;;; | "
        "5,'A'¶6,'B¶10,'X'=>5=A; A;;;",
        [this](const QStringList& given) {
          put("cvra.ini", fileOf(given[0].toLatin1()));
          return stateOfSettings();
        });
  }

  void theDataFolderIsFoundWhateverHappens() {
    const QString standard = QDir::toNativeSeparators(at("daten"));
    QCOMPARE(stateOfSettings(), u"10="_s + standard + u"; ;;;"_s);  // without a settings file
    Settings settings;
    QString& folder = settings.slot[setting::kDataFolder];
    for (const QString& gone : {QString(), at("gone")}) {
      folder = gone;
      QCOMPARE(dialogFolder(settings, folder_->path()), standard);
    }
    folder = folder_->path();
    QCOMPARE(dialogFolder(settings, at("elsewhere")), folder);
    // A default folder that no file can hold is found again.
    const QString program = at("Вода");
    QVERIFY(QDir().mkpath(program));
    settings = {};
    readSettings(settings, program);
    writeSettings(settings, program, setting::kDataFolder);
    settings = {};
    readSettings(settings, program);
    QCOMPARE(folder, defaultDataFolder(program));
  }

  void aBlankCompanyLineGivesWayToTheDefaultThatIsNotStored() {
    const QByteArray blank = "5,\"       \"\r\n6,\"    \"\r\n7,\"\"\r\n8,\"\"\r\n";
    put("cvra.ini", blank);
    Settings settings;
    readSettings(settings, folder_->path());
    const QString list = settings.slot[setting::kSegmentList];
    const QStringList segments = list.split(u'|');
    QVERIFY(segments.size() == 4 && !segments.contains(QString()));
    QCOMPARE(settings.slot[setting::kPrintLine], segments.join(QString()));
    QCOMPARE(joined(linesOfSegmentList(list)), segments.mid(0, 3).join(u';') + u';');
    writeSettings(settings, folder_->path(), setting::kDataFolder);
    QVERIFY(bytesOf(at("cvra.ini")).contains(blank));
  }

  void savingSettingsLosesNothingThatCouldNotBeRead() {
    const QByteArray foreign = "\xEF\xBB\xBF" + golden("cvra.ini");
    put("cvra.ini", foreign);
    Settings settings;
    readSettings(settings, folder_->path());
    settings.slot[setting::kDataFolder] = u"D:\\neu"_s;
    for (int save = 0; save < 2; ++save)
      writeSettings(settings, folder_->path(), setting::kDataFolder);
    put("cvra.ini", "x,\"y\"");
    readSettings(settings, folder_->path());
    writeSettings(settings, folder_->path(), setting::kDataFolder);
    QCOMPARE(bytesOf(at("cvra.ini.alt")), foreign);
    QCOMPARE(bytesOf(at("cvra.ini.alt2")), QByteArray("x,\"y\""));
    readSettings(settings, folder_->path());
    QCOMPARE(settings.slot[setting::kDataFolder], u"D:\\neu"_s);
    // What is no regular file can neither be read nor replaced, and nothing waits for its end.
    for (const auto& thing : {u"mkdir"_s, u"mkfifo"_s, u"ln -s /dev/zero"_s}) {
      const QString make = u"rm -r cvra.ini && %1 cvra.ini"_s.arg(thing);
      outputOf(u"sh"_s, {u"-c"_s, u"cd '%1' && "_s.arg(folder_->path()) + make});
      readSettings(settings, folder_->path());
      QCOMPARE(errorOf([&] { writeSettings(settings, folder_->path(), setting::kDataFolder); }),
               75);
    }
  }

  void whatAnotherInstanceSavedIsKeptAndInForce() {
    const CompanyLines segments = storedSegments({u"A"_s, u"B"_s, u"C"_s, u"D"_s});
    for (const int first : {setting::kFirstSegment, setting::kDataFolder}) {
      put("cvra.ini", golden("cvra.ini"));
      Settings settings[2];
      for (Settings& instance : settings) readSettings(instance, folder_->path());
      for (Settings& instance : settings) {
        const bool folder = (&instance == settings) == (first == setting::kDataFolder);
        if (folder) instance.slot[setting::kDataFolder] = u"E:\\neu"_s;
        if (!folder) instance.segments = segments;
        writeSettings(instance, folder_->path(),
                      folder ? setting::kDataFolder : setting::kFirstSegment);
      }
      QCOMPARE(settings[1].slot[setting::kDataFolder], u"E:\\neu"_s);
      QCOMPARE(settings[1].segments, segments);
      put("cvra.ini", "10,'F:'");  // as chosen here again, and without what is known here
      writeSettings(settings[1], folder_->path(), setting::kDataFolder);
      readSettings(settings[0], folder_->path());
      QCOMPARE(settings[0].slot[setting::kDataFolder], u"E:\\neu"_s);
      QCOMPARE(settings[0].slot[setting::kPrintLine], joinedSegments(segments));
    }
  }

  /// Four lines, or how many x they have => stored segments; preview; length of both.
  void aCompanyLineIsPaddedAndHas115Characters() {
    compare(
        "A;B;C;D=>A       ;B    ;C    ;D;A       B    C    D;19 19 | "
        "A;;;D=>A       ;    ;    ;D;A       D;17 9 | "
        " A  ;B ; ;D  => A       ;B    ;    ;D; A       B        D;19 19 | "
        ";;;=>       ;    ;    ;;       ;15 7 | 101;;;=>x       ;    ;    ;;x       ;116 108 | "
        "109;;;=>x       ;    ;    ;;x      ;124 115 | "
        "40;20;20;20=>x       ;x    ;x    ;x;x       x    x    x;115 115 | "
        "40;20;20;21=>x       ;x    ;x    ;x;x       x    x    x;116 115",
        [](const QStringList& given) {
          CompanyLines lines;
          std::ranges::transform(given, lines.begin(), [](const QString& line) {
            return line.toInt() > 0 ? QString(line.toInt(), u'x') : line;
          });
          const CompanyLines stored = storedSegments(lines);
          const QString preview = companyPreview(lines);
          const auto lengths = u"%1 %2"_s.arg(joinedSegments(stored).size()).arg(preview.size());
          const QStringList texts{joined(stored), preview, lengths};
          return texts.join(u';').replace(QRegularExpression(u"x+"_s), u"x"_s);
        });
  }

  void aSegmentListShowsWhatABarFollows() {
    compare(
        "A |B|C|D|=>A ;B;C;D | A|B|C|D=>A;B;C; | A|B|C|D|E|=>A;B;C;D | ||C|=>;;C; | A=>;;; | =>;;;",
        [](const QStringList& given) { return joined(linesOfSegmentList(given[0])); });
  }

  void aPastedTextPassesTheSameFilter() {
    compare(
        "Wärme, 5 % {|}=>Wärme, 5 % {|} | \"Süd\" ~ Größe € 💧=>Süd ~ Größe € ? | "
        "oben¶unten\tda=>oben  unten da | – 5\u2009µm u\u0308ber\u200B Łódź=>– 5 µm über ?ód?",
        [](const QStringList& given) {
          return filteredText(given[0] + u"\x03\x16\x08\x1B\x7F"_s);
        });
  }

 private:
  QString at(const char* name) const { return folder_->filePath(QString::fromUtf8(name)); }
  void put(const char* name, const QByteArray& bytes) const { calvora::put(at(name), bytes); }

  /// Reads into a program that holds another analysis: how that ended, header ("-" is still the
  /// other one's) and fields.
  QString read(const char* name) const {
    Program program;
    setState(program, u"-|-|-|-|-|-|-|-"_s, u"5=1'old"_s);
    bool complete = false;
    const auto reset = [&] { program.resetRecord(); };
    const int error = errorOf([&] {
      complete = readAnalysis(program, at(name), reset);
      QCOMPARE(readForOverview(at(name)).complete, complete);
      QCOMPARE(isUnchanged(program.file), complete);
    });
    const QString how = complete ? u"complete"_s : u"stopped"_s;
    return (error != 0 ? QString::number(error) : how) + u' ' + stateOf(program);
  }

  /// The slots that have a text after reading the settings file, then the segments.
  QString stateOfSettings() const {
    Settings settings;
    readSettings(settings, folder_->path());
    QString state;
    for (int i = 0; i <= 20; ++i) {
      if (!settings.slot[i].isEmpty()) state += u"%1=%2;"_s.arg(i).arg(settings.slot[i]);
    }
    return state + u' ' + joined(settings.segments);
  }

  std::optional<QTemporaryDir> folder_;
};

QTEST_GUILESS_MAIN(StorageTest)
#include "storage_test.moc"
