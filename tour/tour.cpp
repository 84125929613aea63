// A walk through the program with real key events on the offscreen platform: it types a complete
// analysis, prints every field as a table and leaves a picture of each window it passed.
#include <QApplication>
#include <QDir>
#include <QTest>
#include <QTextStream>
#include <QTimer>

#include "app/application.h"
#include "app/start_window.h"
#include "dialogs/bb_msg.h"
#include "dialogs/nachricht.h"
#include "platform/look.h"

using namespace Qt::StringLiterals;

namespace {

QTextStream& out() {
  static QTextStream stream(stdout);
  return stream;
}

class Tour {
 public:
  explicit Tour(const QString& folder) : folder_(folder) {}

  /// Walks the whole way. False if a window did not come or a picture could not be written.
  bool walk();

 private:
  void require(bool holds, const QString& what);
  void picture(QWidget& window, const QString& name);
  void type(const QString& text);
  void press(Qt::Key key);
  /// What the next modal window is to be called, and the key that answers it.
  void expectMessage(const QString& name, Qt::Key answer);

  void passStartWindow();
  void typeAnalysis();
  void printTable();
  void showConvertedConductivity();
  void showMessages();
  void showRuntimeError();

  calvora::main& window() { return application_.mainWindow(); }

  QString folder_;
  calvora::Application application_;
  bool complete_ = true;
};

void Tour::require(bool holds, const QString& what) {
  if (holds) return;
  out() << "The tour missed: " << what << '\n';
  complete_ = false;
}

void Tour::picture(QWidget& window, const QString& name) {
  QTest::qWait(20);
  const QString path = folder_ + '/'_L1 + name + u".png"_s;
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

void Tour::expectMessage(const QString& name, Qt::Key answer) {
  QTimer::singleShot(50, qApp, [this, name, answer] {
    auto* message = dynamic_cast<calvora::nachricht*>(QApplication::activeModalWidget());
    require(message != nullptr, name);
    if (message == nullptr) return;
    picture(*message, name);
    QTest::keyClick(message, answer);
  });
}

bool Tour::walk() {
  application_.show();
  passStartWindow();
  typeAnalysis();
  printTable();
  showConvertedConductivity();
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
  const calvora::AnalysisRecord& record = application_.program().record;
  const auto row = [&](const QString& caption, const QString& value, const QString& text) {
    out() << caption.leftJustified(40) << value.rightJustified(12) << "  " << text << '\n';
  };
  const auto field = [&](int index, const QString& caption, const QString& unit) {
    row(u"%1 %2"_s.arg(index, 2).arg(caption.simplified()),
        QString::number(record.value[index].toDouble(), 'f', 4),
        record.text[index] + ' '_L1 + unit);
  };
  row(u"Field"_s, u"Value"_s, u"Text"_s);
  for (const auto& f : calvora::inputCaptions()) field(f.index, f.caption, f.unit);
  for (const auto& f : calvora::resultCaptions()) field(f.index, f.caption, f.unit);
  row(u"31 Ionenstärke"_s, QString::number(record.value[31].toDouble(), 'f', 4), u"mmol/l"_s);
  row(u"32 Natrium"_s, QString::number(record.value[32].toDouble(), 'f', 4), u"mg/l"_s);
  field(35, u"pH aus Ks-, Kb- Wert, Näherung"_s, u"pH"_s);
  row(u"   Leitfähigkeit aus den Ionen"_s, {}, window().Label2(20).text() + u" µS/cm"_s);
}

void Tour::showConvertedConductivity() {
  QTest::mouseClick(window().Command3, Qt::LeftButton);
  picture(window(), u"main-bei-temperatur"_s);
  QTest::mouseClick(window().Command3, Qt::LeftButton);
}

void Tour::showMessages() {
  window().Text1(3).setFocus(Qt::TabFocusReason);
  expectMessage(u"message-range"_s, Qt::Key_Enter);
  type(u"99"_s);
  window().Text1(3).setFocus(Qt::TabFocusReason);
  type(u"10"_s);
  expectMessage(u"message-save"_s, Qt::Key_Escape);
  window().close();
  for (int symbol = 1; symbol <= 5; ++symbol) {
    calvora::nachricht message(&window());
    message.messein({.text = u" So sieht das Symbol Nummer %1 aus. "_s.arg(symbol),
                     .buttons = symbol == 5 ? 6 : 1,
                     .title = u"Symbol"_s,
                     .symbol = symbol});
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

}  // namespace

int main(int argc, char* argv[]) {
  // The offscreen platform warns of what it cannot do; only worse than that is worth reading here.
  qInstallMessageHandler([](QtMsgType type, const QMessageLogContext&, const QString& text) {
    if (type != QtDebugMsg && type != QtInfoMsg && type != QtWarningMsg) out() << text << '\n';
  });
  if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication application(argc, argv);
  calvora::applyLook(application);
  const QString folder = argc > 1 ? QString::fromLocal8Bit(argv[1]) : u"build/tour"_s;
  if (!QDir().mkpath(folder)) {
    out() << "Cannot write to " << folder << '\n';
    return 1;
  }
  return Tour(folder).walk() ? 0 : 1;
}
