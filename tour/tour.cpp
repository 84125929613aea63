// A walk through the program with real key events on the offscreen platform: it types a complete
// analysis, prints every field as a table and leaves a picture of each window it passed.
#include <QDir>
#include <QFileInfo>
#include <QInputDialog>
#include <QKeyEvent>
#include <QPrintPreviewDialog>
#include <QTemporaryFile>
#include <QTextStream>

#include "app/application.h"
#include "dialogs/windows/nachricht.h"
#include "print/windows/drucker.h"
#include "storage/windows/dateien.h"
#include "support/all_windows.h"
#include "tools/windows/dimum.h"
#include "tools/windows/info1.h"
#include "tools/windows/varios.h"
#include "tools/windows/version_window.h"

using namespace calvora;
using namespace Qt::StringLiterals;

namespace {

QTextStream& out() {
  static QTextStream stream(stdout);
  return stream;
}

/// A walk through the program. Its stops press what a user presses, require what must be seen, and
/// leave a picture of each window.
class Tour {
 public:
  explicit Tour(const QString& folder)
      : folder_(folder),
        desktop_(*new RecordingDesktop),
        application_(std::unique_ptr<Desktop>(&desktop_)),
        window_(application_.mainWindow()),
        program_(application_.program()) {
    program_.programFolder = folder_;  // no window was left anywhere
  }

  /// Walks the whole way. False if a window did not come or a picture could not be written.
  bool walk() {
    application_.show();
    passStartWindow();
    typeAnalysis();
    printTable();
    showConvertedConductivity();
    showKeptResults();
    saveStartOverAndLoad();
    showSettings();
    showConverter();
    showVolume();
    showInformation();
    showVersion();
    showPrinting();
    showPlausibility();
    showOverview();
    showMessages();
    showRuntimeError();
    leave();
    for (const WindowWay& way : allWindows()) {
      require(QFile::exists(file(QLatin1String(way.name) + u".png"_s)),
              u"a picture of "_s + QLatin1String(way.name));
    }
    out() << "Pictures: " << folder_ << '\n';
    return complete_;
  }

 private:
  /// A file in the tour's folder.
  [[nodiscard]] QString file(const QString& name) const { return folder_ + u'/' + name; }

  void require(bool holds, const QString& what) {
    if (holds) return;
    out() << "The tour missed: " << what << Qt::endl;
    complete_ = false;
  }

  void picture(QWidget& window, const QString& name) {
    QTest::qWait(20);
    const QString path = file(name + u".png"_s);
    require(window.grab().save(path), path);
  }

  /// A picture of the window that was just opened beside the main window, which is then closed.
  void pictureOfActive(const QString& name) {
    QTest::qWait(20);
    QWidget* active = QApplication::activeWindow();
    const bool opened = active != nullptr && active != &window_;
    require(opened, name);
    if (!opened) return;
    picture(*active, name);
    active->close();
  }

  /// Takes a picture of the next modal window and does what is to happen to it.
  template <class Window>
  void expectModal(const QString& name, const std::function<void(Window&)>& act) {
    QTimer::singleShot(50, qApp, [this, name, act] {
      auto* modal = dynamic_cast<Window*>(QApplication::activeModalWidget());
      require(modal != nullptr, name);
      if (modal == nullptr) return;
      picture(*modal, name);
      act(*modal);
    });
  }
  template <class Window>
  void expectModal(const QString& name, Qt::Key key) {
    expectModal<Window>(name, [key](Window& window) { QTest::keyClick(&window, key); });
  }

  void type(const QString& text) {
    for (const QChar c : text) QTest::keyClick(window_.focusWidget(), c.toLatin1());
    QTest::keyClick(window_.focusWidget(), Qt::Key_Enter);
    QTest::qWait(5);
  }

  /// The offscreen platform leaves the window inactive once another one was open over it.
  void activate() {
    window_.activateWindow();
    require(QTest::qWaitForWindowActive(&window_), u"the active main window"_s);
  }

  void shortcut(Qt::Key key) {
    activate();
    QTest::keyClick(window_.focusWidget(), key, Qt::ControlModifier);
  }

  void passStartWindow() {
    require(QTest::qWaitFor([this] { return !window_.isEnabled(); }), u"the first activation"_s);
    auto* startWindow = window_.findChild<QDialog*>();
    require(startWindow != nullptr, u"the start window"_s);
    if (startWindow == nullptr) return;
    picture(*startWindow, u"start"_s);
    QTest::keyClick(startWindow, Qt::Key_Enter);
    require(window_.isEnabled(), u"the way into the main window"_s);
    window_.activateWindow();
    QTest::qWait(50);
  }

  /// Conductivity, pH, temperature; Ks8,2 is locked by the pH; Ks4,3, Kb8,2; total hardness is left
  /// to be computed; calcium, magnesium, chloride, iron.
  void typeAnalysis() {
    for (const auto* number : {"420", "7,5", "10", "2,5", "0,25", "", "60", "10", "20", "0,05"}) {
      type(QString::fromLatin1(number));
    }
    picture(window_, u"main"_s);
  }

  void printTable() {
    const AnalysisRecord& record = program_.record;
    const auto row = [&](const QString& caption, const QString& value, const QString& text) {
      out() << caption.leftJustified(40) << value.rightJustified(12) << "  " << text << '\n';
    };
    const auto field = [&](int index, const QString& caption, const QString& unit) {
      row(u"%1 %2"_s.arg(index, 2).arg(caption.simplified()),
          QString::number(record.value[index].toDouble(), 'f', 4),
          record.text[index] + ' '_L1 + unit);
    };
    row(u"Field"_s, u"Value"_s, u"Text"_s);
    for (const auto& f : inputFields()) field(f.index, f.caption, f.unit);
    for (const auto& f : resultFields()) field(f.index, f.caption, f.unit);
    row(u"31 Ionenstärke"_s, QString::number(record.value[31].toDouble(), 'f', 4), u"mmol/l"_s);
    row(u"32 Natrium"_s, QString::number(record.value[32].toDouble(), 'f', 4), u"mg/l"_s);
    field(35, u"pH aus Ks-, Kb- Wert, Näherung"_s, u"pH"_s);
    row(u"   Leitfähigkeit aus den Ionen"_s, {}, window_.Label2(20).text() + u" µS/cm"_s);
  }

  void showConvertedConductivity() {
    window_.Text1(1).setFocus();
    QTest::mouseClick(window_.Command3, Qt::LeftButton);
    picture(window_, u"main-bei-temperatur"_s);
    QTest::mouseClick(window_.Command3, Qt::LeftButton);
  }

  /// Without Kb8,2 the results that rest on it stay as they were.
  void showKeptResults() {
    const auto enter = [&](int box, const QString& text) {
      window_.Text1(box).setFocus();
      window_.Text1(box).selectAll();
      if (text.isEmpty()) QTest::keyClick(window_.focusWidget(), Qt::Key_Space);
      type(text);
    };
    enter(feld::kKb82, {});
    enter(feld::kKs43, u"3"_s);
    require(window_.Label2(feld::kHydrogencarbonat).property("role") == u"kept"_s,
            u"a hydrogencarbonate that is marked as old"_s);
    picture(window_, u"main-kept"_s);
    enter(feld::kKb82, u"0,25"_s);
    enter(feld::kKs43, u"2,5"_s);
    enter(feld::kKs43, u"2,5"_s);  // the conductivity uses the ions of the run before
  }

  QStringList shownTexts() {
    QStringList texts;
    for (const auto& [index, box] : window_.Text1) texts += box->text();
    for (const auto& [index, label] : window_.Label2) texts += label->text();
    return texts;
  }

  void saveStartOverAndLoad() {
    const QStringList before = shownTexts();
    expectModal<Dateien>(u"dateien-save"_s, [](Dateien& dateien) {
      const std::pair<QWidget*, QString> fields[] = {
          {dateien.Text1, u"Wohnanlage Beispielhof"_s},
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
      dateien.Command1->click();
    });
    desktop_.file = file(u"rundgang"_s);
    QFile::remove(file(u"rundgang.cva"_s));  // of a tour before; else the program asks
    shortcut(Qt::Key_S);
    shortcut(Qt::Key_N);
    require(program_.record == AnalysisRecord{}, u"the empty mask"_s);
    expectModal<Dateien>(u"dateien-loaded"_s, Qt::Key_Escape);
    shortcut(Qt::Key_O);
    window_.Text1(1).setFocus();
    QTest::qWait(20);
    picture(window_, u"main-loaded"_s);
    require(shownTexts() == before, u"the same mask after loading"_s);
  }

  /// The data folder is one that looks the same on every machine, so that the pictures do. The last
  /// of the tours that are showing it just now removes it.
  void showSettings() {
    const QString dataFolder = QDir::temp().filePath(u"Calvora/daten"_s);
    QTemporaryFile shownHere(dataFolder + u"/XXXXXX"_s);
    bool isThere = false;  // another tour may remove it in the moment before this one is in it
    for (int i = 0; i < 10 && !isThere; ++i)
      isThere = QDir().mkpath(dataFolder) && shownHere.open();
    require(isThere, dataFolder);
    program_.settings.slot[setting::kDataFolder] = dataFolder;
    window_.mnu2_pfad->trigger();
    pictureOfActive(u"datenpfad"_s);
    shownHere.remove();
    QDir::temp().rmpath(u"Calvora/daten"_s);

    window_.mnu2_fatext->trigger();
    QTest::qWait(20);
    for (const auto* line :
         {"Wassertechnik Beispiel", "Brunnenweg 7", "12345 Musterstadt", "Tel. 01234 / 56 78"}) {
      if (QWidget* box = QApplication::focusWidget())
        QTest::keyClicks(box, QString::fromLatin1(line));
      if (QWidget* box = QApplication::focusWidget()) QTest::keyClick(box, Qt::Key_Down);
    }
    pictureOfActive(u"firma"_s);
  }

  /// The converter that a unit button opens; it is closed again after `look`.
  void visitConverter(int field, const std::function<void(dimum&)>& look) {
    activate();
    QTest::mouseClick(&window_.Command1(field), Qt::LeftButton);
    QTest::qWait(20);
    auto* window = dynamic_cast<dimum*>(QApplication::activeWindow());
    require(window != nullptr, u"the converter of field %1"_s.arg(field));
    if (window == nullptr) return;
    look(*window);
    if (window->isVisible()) QTest::keyClick(window, Qt::Key_Escape);
    require(window_.isEnabled(), u"the mask after the converter"_s);
  }

  void showConverter() {
    visitConverter(1, [&](dimum& window) {
      picture(window, u"dimum"_s);
      expectModal<QInputDialog>(u"converter-input"_s, [](QInputDialog& box) {
        QTest::keyClicks(box.focusWidget(), u"0,42"_s);
        QTest::keyClick(&box, Qt::Key_Enter);
      });
      QTest::keyClick(window.focusWidget(), Qt::Key_Down);
      QTest::keyClick(window.focusWidget(), Qt::Key_Enter);
      require(window.Label3(1).text() == "420"_L1, u"420 µS/cm"_s);
      QTest::mouseClick(window.Command1, Qt::LeftButton);
      require(!window.isVisible(), u"the value taken over"_s);
    });
    visitConverter(3, [&](dimum& window) { picture(window, u"converter-temperature"_s); });
    visitConverter(20, [&](dimum& window) {
      QTest::mouseMove(window.windowHandle(), window.Label1(12).mapTo(&window, QPoint(5, 5)));
      picture(window, u"converter-hardness"_s);
    });
    visitConverter(23, [&](dimum& window) {
      QTest::keyClick(window.focusWidget(), Qt::Key_Left);
      picture(window, u"converter-calcium"_s);
      expectModal<nachricht>(u"converter-help"_s, Qt::Key_Enter);
      window.mnuhelp->trigger();
    });
    activate();
    picture(window_, u"main-after-converter"_s);
  }

  void chooseExtra(Qt::Key letter) {
    activate();
    QTest::keyClick(&window_, Qt::Key_E, Qt::AltModifier);
    QTest::qWait(20);
    QWidget* menu = QApplication::activePopupWidget();
    require(menu != nullptr, u"the menu Extras"_s);
    if (menu != nullptr) QTest::keyClick(menu, letter);
    QTest::qWait(20);
  }

  void showVolume() {
    chooseExtra(Qt::Key_T);
    auto* window = dynamic_cast<varios*>(QApplication::activeWindow());
    require(window != nullptr, u"the volume correction"_s);
    if (window == nullptr) return;
    picture(*window, u"varios"_s);
    QTest::keyClicks(window->focusWidget(), u"200"_s);
    QTest::keyClick(window->focusWidget(), Qt::Key_Enter);
    QTest::keyClick(window->focusWidget(), Qt::Key_End);
    require(window->Label3(1).text() == u"191,20"_s, u"the corrected volume"_s);
    picture(*window, u"varios-200-ml"_s);
    QTest::mouseClick(window->Command1, Qt::LeftButton);
    require(!window->isVisible(), u"the way back"_s);
  }

  void showInformation() {
    activate();
    expectModal<info1>(u"info1"_s,
                       [](info1& window) { QTest::mouseClick(window.Command1, Qt::LeftButton); });
    QTest::mouseClick(&window_.Image1(0), Qt::LeftButton);
    expectModal<info1>(u"info1-by-keyboard"_s,
                       [](info1& window) { QTest::keyClick(window.focusWidget(), Qt::Key_Enter); });
    shortcut(Qt::Key_I);
  }

  void showVersion() {
    expectModal<Version>(u"version"_s, Qt::Key_Space);
    chooseExtra(Qt::Key_V);
    expectModal<Version>(u"version-by-mouse"_s,
                         [](Version& window) { QTest::mouseClick(window.Image1, Qt::LeftButton); });
    window_.mnu_version->trigger();
  }

  void showPrinting() {
    program_.settings.slot[setting::kPrintLine] =
        u"Muster Haustechnik GmbH       Werkstraße 12    12345 Musterstadt    Telefon 01234 56789"_s;
    desktop_.file = file(u"bericht-analyse"_s);
    expectModal<Drucker>(u"drucker"_s, [this](Drucker& dialog) {
      expectModal<QPrintPreviewDialog>(u"vorschau"_s,
                                       [](QPrintPreviewDialog& preview) { preview.close(); });
      QTest::keyClick(dialog.Command4, Qt::Key_Enter);
      QTest::keyClick(dialog.Command2, Qt::Key_Enter);
    });
    shortcut(Qt::Key_P);
    require(QFileInfo(desktop_.file + u".pdf"_s).size() > 0, u"the printed analysis"_s);
  }

  void showPlausibility() {
    shortcut(Qt::Key_L);
    auto* window = shownWindow<plausi>();
    require(window != nullptr, u"the plausibility check"_s);
    if (window == nullptr) return;
    picture(*window, u"plausi"_s);
    desktop_.file = file(u"bericht-plausi"_s);
    expectModal<Drucker>(u"drucker-plausi"_s, [](Drucker& dialog) { dialog.Command2->click(); });
    window->Command1(2).click();
    require(QFileInfo(desktop_.file + u".pdf"_s).size() > 0, u"the printed check"_s);
    window->SSTab1->setCurrentIndex(1);
    picture(*window, u"plausi-unsicherheiten"_s);
    QTest::keyClick(window, Qt::Key_Escape);
    require(!window->isVisible(), u"the end of the plausibility check"_s);
  }

  void fillSlots(analysen& overview) {
    const QString folder = QCoreApplication::applicationDirPath() + u"/daten/"_s;
    for (const auto& [slot, name] :
         {std::pair{1, u"leitungswasser-fuellung"_s}, std::pair{2, u"laugendosierter-kreislauf"_s},
          std::pair{5, u"vollentsalzter-kreislauf"_s}}) {
      desktop_.file = folder + name;
      expectModal<Dateien>(u"overview-header-%1"_s.arg(slot), Qt::Key_Escape);
      overview.Label1(slot).setFocus(Qt::TabFocusReason);
      QTest::keyClick(&overview.Label1(slot), Qt::Key_Enter);
      require(overview.Label1(slot).caption() == name, u"an analysis in slot %1"_s.arg(slot));
    }
    picture(overview, u"analysen"_s);
  }

  void printOverview(analysen& overview) {
    desktop_.file = file(u"bericht-uebersicht"_s);
    expectModal<Drucker>(u"drucker-uebersicht"_s,
                         [](Drucker& dialog) { dialog.Command2->click(); });
    overview.Command1(3).click();
    require(QFileInfo(desktop_.file + u".pdf"_s).size() > 0, u"the printed overview"_s);
  }

  void saveAndReload(analysen& overview) {
    const OverviewGrid before = overview.project().grid;
    desktop_.file = file(u"rundgang"_s);
    QFile::remove(file(u"rundgang.cvp"_s));
    expectModal<Dateien>(u"overview-save"_s, [this](Dateien& dateien) {
      expectModal<nachricht>(u"overview-saved"_s, Qt::Key_Enter);
      dateien.Command1->click();
    });
    overview.Command1(4).click();
    expectModal<nachricht>(u"overview-clear"_s,
                           [](nachricht& question) { question.Command1(1).click(); });
    overview.Command1(2).click();
    picture(overview, u"overview-empty"_s);
    expectModal<Dateien>(u"overview-project"_s, Qt::Key_Escape);
    overview.Command1(5).click();
    // The project packs its analyses.
    require(overview.project().grid.slot[1] == before.slot[1], u"the first analysis again"_s);
    require(overview.project().grid.slot[2] == before.slot[5], u"the second analysis again"_s);
    overview.MSFlexGrid1->setFocus();
    overview.MSFlexGrid1->setRangeSelected({1, 0, 6, 3}, true);
    picture(overview, u"overview-reloaded"_s);
  }

  void showOverview() {
    window_.mnu2_ana->trigger();
    auto* overview = shownWindow<analysen>();
    require(overview != nullptr, u"the overview"_s);
    if (overview == nullptr) return;
    const AnalysisRecord record = program_.record;
    fillSlots(*overview);
    printOverview(*overview);
    expectModal<nachricht>(u"overview-remove"_s,
                           [](nachricht& question) { question.Command1(2).click(); });
    overview->Label1(2).click();
    require(!overview->project().grid.slot[2].filled, u"the empty slot 2"_s);
    saveAndReload(*overview);
    overview->resize(overview->width() * 2 / 3, overview->height() * 2 / 3);
    overview->activateWindow();
    require(QTest::qWaitForWindowActive(overview), u"the active overview"_s);
    overview->Label1(8).setFocus(Qt::TabFocusReason);
    picture(*overview, u"overview-small"_s);
    require(program_.record.value == record.value, u"the main window's analysis"_s);
    overview->Command1(1).click();
  }

  void showMessages() {
    activate();
    window_.Text1(3).setFocus(Qt::TabFocusReason);
    expectModal<nachricht>(u"message-range"_s, Qt::Key_Enter);
    type(u"99"_s);
    activate();
    window_.Text1(3).setFocus(Qt::TabFocusReason);
    type(u"10"_s);
    expectModal<nachricht>(u"message-save"_s, Qt::Key_Escape);
    window_.close();
    for (int symbol = 1; symbol <= 5; ++symbol) {
      nachricht message(&window_);
      message.messein({.text = u" So sieht das Symbol Nummer %1 aus. "_s.arg(symbol),
                       .buttons = symbol == 5 ? Button::kJa | Button::kNein : Buttons(Button::kOk),
                       .title = u"Symbol"_s,
                       .symbol = static_cast<Symbol>(symbol)});
      message.show();
      picture(message, u"message-symbol-%1"_s.arg(symbol));
    }
  }

  void showRuntimeError() {
    auto* report = new bb_msg(desktop_);
    report->message(2, u"13 werteingabe\\formz"_s);
    picture(*report, u"runtime-error"_s);
    report->close();
  }

  /// Without saving, and without anything to recover at the next start.
  void leave() {
    activate();
    expectModal<nachricht>(u"message-save"_s,
                           [](nachricht& question) { question.Command1(3).click(); });
    window_.close();
    require(desktop_.ended == 1, u"the end"_s);
  }

  QString folder_;
  RecordingDesktop& desktop_;
  Application application_;
  calvora::main& window_;
  Program& program_;
  bool complete_ = true;
};

}  // namespace

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
  if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) {
    qputenv("QT_QPA_PLATFORM", "offscreen:configfile=" CALVORA_SCREEN);
  }
  QApplication application(argc, argv);
  applyLook(application);
  return Tour(QDir(folder).absolutePath()).walk() ? 0 : 1;  // the data folder window moves on
}
