// A walk through the program with real key events on the offscreen platform: it types a complete
// analysis, prints every field as a table and leaves a picture of each window it passed.
#include "tour.h"

#include <QDir>
#include <QFile>
#include <QKeyEvent>
#include <QTemporaryFile>
#include <QTextStream>

#include "app/start_window.h"
#include "dialogs/windows/bb_msg.h"
#include "dialogs/windows/nachricht.h"
#include "platform/look.h"
#include "stops.h"
#include "storage/settings.h"
#include "storage/windows/dateien.h"

using namespace Qt::StringLiterals;

namespace {

QTextStream& out() {
  static QTextStream stream(stdout);
  return stream;
}

/// An offscreen platform that has room for every window; its own is smaller than the main window.
void setLargeScreen(const QString& folder) {
  QFile file(folder + u"/screen.json"_s);
  if (!file.open(QFile::WriteOnly)) return;
  file.write(R"({"screens": [{"name": "large", "x": 0, "y": 0, "width": 2560, "height": 1920,
    "logicalDpi": 96, "logicalBaseDpi": 96, "dpr": 1}]})");
  qputenv("QT_QPA_PLATFORM", "offscreen:configfile=" + QFile::encodeName(file.fileName()));
}

}  // namespace

Tour::Tour(const QString& folder)
    : folder_(folder), application_(std::unique_ptr<calvora::Desktop>(desktop_)) {}

void Tour::require(bool holds, const QString& what) {
  if (holds) return;
  out() << "The tour missed: " << what << Qt::endl;
  complete_ = false;
}

void Tour::picture(QWidget& window, const QString& name) {
  QTest::qWait(20);
  const QString path = file(name + u".png"_s);
  require(window.grab().save(path), path);
}

void Tour::press(Qt::Key key) {
  QTest::keyClick(window().focusWidget(), key);
  QTest::qWait(5);
}

void Tour::type(const QString& text) {
  for (const QChar c : text) QTest::keyClick(window().focusWidget(), c.toLatin1());
  press(Qt::Key_Enter);
}

/// The offscreen platform leaves the window inactive once another one was open over it.
void Tour::activate() {
  window().activateWindow();
  require(QTest::qWaitForWindowActive(&window()), u"the active main window"_s);
}

void Tour::shortcut(Qt::Key key) {
  activate();
  QTest::keyClick(window().focusWidget(), key, Qt::ControlModifier);
}

bool Tour::walk() {
  application_.show();
  passStartWindow();
  typeAnalysis();
  printTable();
  showConvertedConductivity();
  saveStartOverAndLoad();
  showSettings();
  showConverter(*this);
  showSmallWindows(*this);
  visitPrinting(*this);
  showOverview(*this);
  showMessages();
  showRuntimeError();
  out() << "Pictures: " << folder_ << '\n';
  return complete_;
}

void Tour::passStartWindow() {
  require(QTest::qWaitFor([this] { return !window().isEnabled(); }), u"the first activation"_s);
  auto* startWindow = window().findChild<QDialog*>();
  require(startWindow != nullptr, u"the start window"_s);
  if (startWindow == nullptr) return;
  picture(*startWindow, u"start"_s);
  QTest::keyClick(startWindow, Qt::Key_Enter);
  require(window().isEnabled(), u"the way into the main window"_s);
  window().activateWindow();
  QTest::qWait(50);
}

/// Conductivity, pH, temperature; Ks8,2 is locked by the pH; Ks4,3, Kb8,2; total hardness is left
/// to be computed; calcium, magnesium, chloride, iron.
void Tour::typeAnalysis() {
  for (const auto* number : {"420", "7,5", "10", "2,5", "0,25", "", "60", "10", "20", "0,05"}) {
    type(QString::fromLatin1(number));
  }
  picture(window(), u"main"_s);
}

void Tour::printTable() {
  const calvora::AnalysisRecord& record = program().record;
  const auto row = [&](const QString& caption, const QString& value, const QString& text) {
    out() << caption.leftJustified(40) << value.rightJustified(12) << "  " << text << '\n';
  };
  const auto field = [&](int index, const QString& caption, const QString& unit) {
    row(u"%1 %2"_s.arg(index, 2).arg(caption.simplified()),
        QString::number(record.value[index].toDouble(), 'f', 4),
        record.text[index] + ' '_L1 + unit);
  };
  row(u"Field"_s, u"Value"_s, u"Text"_s);
  for (const auto& f : calvora::inputFields()) field(f.index, f.caption, f.unit);
  for (const auto& f : calvora::resultFields()) field(f.index, f.caption, f.unit);
  row(u"31 Ionenstärke"_s, QString::number(record.value[31].toDouble(), 'f', 4), u"mmol/l"_s);
  row(u"32 Natrium"_s, QString::number(record.value[32].toDouble(), 'f', 4), u"mg/l"_s);
  field(35, u"pH aus Ks-, Kb- Wert, Näherung"_s, u"pH"_s);
  row(u"   Leitfähigkeit aus den Ionen"_s, {}, window().Label2(20).text() + u" µS/cm"_s);
}

void Tour::showConvertedConductivity() {
  window().Text1(1).setFocus();
  QTest::mouseClick(window().Command3, Qt::LeftButton);
  picture(window(), u"main-bei-temperatur"_s);
  QTest::mouseClick(window().Command3, Qt::LeftButton);
}

QStringList Tour::shownTexts() {
  QStringList texts;
  for (const auto& [index, box] : window().Text1) texts += box->text();
  for (const auto& [index, label] : window().Label2) texts += label->text();
  return texts;
}

void Tour::saveStartOverAndLoad() {
  const QStringList before = shownTexts();
  expectModal<calvora::Dateien>(u"dateien-save"_s, [this](calvora::Dateien& dateien) {
    const std::pair<QWidget*, QString> fields[] = {{dateien.Text1, u"Wohnanlage Beispielhof"_s},
                                                   {dateien.Text2, u"2026-014"_s},
                                                   {dateien.Text3, u"Heizkreis Rücklauf"_s},
                                                   {dateien.Text4, u"Hausverwaltung Muster"_s},
                                                   {dateien.Text7, u"nach dem Spülen entnommen"_s}};
    for (const auto& [field, text] : fields) {
      field->setFocus();
      for (const QChar c : text) {
        QKeyEvent key(QEvent::KeyPress, 0, Qt::NoModifier, c);  // keyClicks knows no umlauts
        QCoreApplication::sendEvent(field, &key);
      }
    }
    picture(dateien, u"dateien-save"_s);
    dateien.Command1->click();
  });
  desktop().file = file(u"rundgang"_s);
  QFile::remove(file(u"rundgang.cva"_s));  // of a tour before; else the program asks
  shortcut(Qt::Key_S);
  shortcut(Qt::Key_N);
  require(program().record == calvora::AnalysisRecord{}, u"the empty mask"_s);
  expectModal<calvora::Dateien>(u"dateien-loaded"_s, [this](calvora::Dateien& dateien) {
    picture(dateien, u"dateien-loaded"_s);
    QTest::keyClick(&dateien, Qt::Key_Escape);
  });
  shortcut(Qt::Key_O);
  window().Text1(1).setFocus();
  QTest::qWait(20);
  picture(window(), u"main-loaded"_s);
  require(shownTexts() == before, u"the same mask after loading"_s);
}

/// The data folder is one that looks the same on every machine, so that the pictures do. The last
/// of the tours that are showing it just now removes it.
void Tour::showSettings() {
  const QString dataFolder = QDir::temp().filePath(u"Calvora/daten"_s);
  QTemporaryFile shownHere(dataFolder + u"/XXXXXX"_s);
  bool isThere = false;  // another tour may remove it in the moment before this one is in it
  for (int i = 0; i < 10 && !isThere; ++i) isThere = QDir().mkpath(dataFolder) && shownHere.open();
  require(isThere, dataFolder);
  program().settings.slot[calvora::setting::kDataFolder] = dataFolder;
  window().mnu2_pfad->trigger();
  pictureOfActive(u"datenpfad"_s);
  shownHere.remove();
  QDir::temp().rmpath(u"Calvora/daten"_s);

  window().mnu2_fatext->trigger();
  QTest::qWait(20);
  for (const auto* line :
       {"Wassertechnik Beispiel", "Brunnenweg 7", "12345 Musterstadt", "Tel. 01234 / 56 78"}) {
    if (QWidget* box = QApplication::focusWidget())
      QTest::keyClicks(box, QString::fromLatin1(line));
    if (QWidget* box = QApplication::focusWidget()) QTest::keyClick(box, Qt::Key_Down);
  }
  pictureOfActive(u"firma"_s);
}

/// A picture of the window that was just opened beside the main window, which is then closed.
void Tour::pictureOfActive(const QString& name) {
  QTest::qWait(20);
  QWidget* active = QApplication::activeWindow();
  const bool opened = active != nullptr && active != &window();
  require(opened, name);
  if (!opened) return;
  picture(*active, name);
  active->close();
}

void Tour::showMessages() {
  activate();
  window().Text1(3).setFocus(Qt::TabFocusReason);
  expectModal<calvora::nachricht>(u"message-range"_s, [this](calvora::nachricht& message) {
    picture(message, u"message-range"_s);
    QTest::keyClick(&message, Qt::Key_Enter);
  });
  type(u"99"_s);
  activate();
  window().Text1(3).setFocus(Qt::TabFocusReason);
  type(u"10"_s);
  expectModal<calvora::nachricht>(u"message-save"_s, [this](calvora::nachricht& message) {
    picture(message, u"message-save"_s);
    QTest::keyClick(&message, Qt::Key_Escape);
  });
  window().close();
  for (int symbol = 1; symbol <= 5; ++symbol) {
    calvora::nachricht message(&window());
    message.messein({.text = u" So sieht das Symbol Nummer %1 aus. "_s.arg(symbol),
                     .buttons = symbol == 5 ? calvora::Button::kJa | calvora::Button::kNein
                                            : calvora::Buttons(calvora::Button::kOk),
                     .title = u"Symbol"_s,
                     .symbol = static_cast<calvora::Symbol>(symbol)});
    message.show();
    picture(message, u"message-symbol-%1"_s.arg(symbol));
  }
}

void Tour::showRuntimeError() {
  calvora::RealDesktop desktop;
  auto* report = new calvora::bb_msg(desktop);
  report->message(2, u"13 werteingabe\\formz"_s);
  picture(*report, u"runtime-error"_s);
  report->close();
}

int main(int argc, char* argv[]) {
  // The offscreen platform warns of what it cannot do; only worse than that is worth reading here.
  qInstallMessageHandler([](QtMsgType type, const QMessageLogContext&, const QString& text) {
    if (type != QtDebugMsg && type != QtInfoMsg && type != QtWarningMsg) out() << text << Qt::endl;
  });
  const QString folder = argc > 1 ? QString::fromLocal8Bit(argv[1]) : u"build/tour"_s;
  if (!QDir().mkpath(folder)) {
    out() << "Cannot write to " << folder << '\n';
    return 1;
  }
  if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) setLargeScreen(folder);
  QApplication application(argc, argv);
  calvora::applyLook(application);
  return Tour(QDir(folder).absolutePath()).walk() ? 0 : 1;  // the data folder window moves on
}
