// Every window on a screen that is smaller than it, and at the resolutions of today's desktops.
#include <QDir>
#include <QPushButton>
#include <QScreen>

#include "app/start_window.h"
#include "dialogs/windows/bb_msg.h"
#include "dialogs/windows/nachricht.h"
#include "overview/windows/analysen.h"
#include "print/windows/drucker.h"
#include "storage/windows/dateien.h"
#include "storage/windows/datenpfad.h"
#include "storage/windows/firma.h"
#include "support/window_support.h"
#include "tools/windows/dimum.h"
#include "tools/windows/info1.h"
#include "tools/windows/varios.h"
#include "tools/windows/version_window.h"

using namespace calvora;
using namespace Qt::StringLiterals;

using Made = std::unique_ptr<QWidget>;
using Make = std::function<Made(Mask&)>;

class SmallScreenTest : public QObject {
  Q_OBJECT

 private slots:
  void everyButtonCanBeReached_data() { windows(); }
  void everyButtonCanBeReached();
  void everyTextIsWhole_data() { windows(); }
  void everyTextIsWhole();

 private:
  static void windows();
};

Q_DECLARE_METATYPE(Make)

namespace {

/// Shows a window, which stays the test's own.
template <class Window>
Window& open(const std::unique_ptr<Window>& window) {
  window->setAttribute(Qt::WA_DeleteOnClose, false);
  window->show();
  QCoreApplication::processEvents();
  return *window;
}

Made makeMessage(Mask& mask) {
  auto message = std::make_unique<nachricht>(&mask.window);
  message->messein({.text = u"eine Frage mit drei Antworten"_s,
                    .buttons = Button::kJa | Button::kNein | Button::kAbbrechen,
                    .title = u"Titel"_s,
                    .symbol = Symbol::kQuestion});
  return message;
}

Made makePrint(Mask& mask) {
  auto dialog = std::make_unique<Drucker>(mask.program, mask.questions, mask.desktop, &mask.window);
  dialog->druckart(Bericht::kAnalyse);
  return dialog;
}

Made makeError(Mask& mask) {
  auto report = std::make_unique<bb_msg>(mask.desktop);
  report->message(2, u"13 werteingabe\\formz"_s);
  return report;
}

Made makeInformation(Mask& mask) {
  auto information = std::make_unique<info1>(&mask.window);
  information->infotxt1();
  return information;
}

}  // namespace

void SmallScreenTest::windows() {
  QTest::addColumn<Make>("make");
  const auto row = [](const char* name, const Make& make) { QTest::newRow(name) << make; };
  row("start", [](Mask& m) { return std::make_unique<start>(m.window, m.desktop); });
  row("Dateien", [](Mask& m) {
    return std::make_unique<Dateien>(Dateien::Mode::kSaveAnalysis, m.program, m.questions,
                                     m.desktop, &m.window);
  });
  row("datenpfad", [](Mask& m) {
    m.program.settings.slot[setting::kDataFolder] = QDir::tempPath();
    return std::make_unique<datenpfad>(m.program, m.questions, &m.window);
  });
  row("firma", [](Mask& m) { return std::make_unique<firma>(m.program, m.questions, &m.window); });
  row("analysen",
      [](Mask& m) { return std::make_unique<analysen>(m.program, m.questions, m.desktop); });
  row("dimum", [](Mask& m) {
    m.program.fieldIndex = 20;
    return std::make_unique<dimum>(m.program.record, 1, m.questions, m.desktop, nullptr, m.window);
  });
  row("varios", [](Mask& m) { return std::make_unique<varios>(&m.window); });
  row("Version", [](Mask& m) { return std::make_unique<Version>(m.program.today(), &m.window); });
  row("nachricht", makeMessage);
  row("Drucker", makePrint);
  row("bb_msg", makeError);
  row("info1", makeInformation);
  row("main", [](Mask&) { return nullptr; });
}

void SmallScreenTest::everyButtonCanBeReached() {
  QFETCH(const Make, make);
  Mask mask;
  const Made made = make(mask);
  QWidget& window = made ? open(made) : mask.window;
  const QRect screen = window.screen()->availableGeometry();
  QVERIFY2(screen.contains(window.geometry()), "the window leaves the screen");
  for (QPushButton* button : window.findChildren<QPushButton*>()) {
    if (!button->isVisibleTo(&window) || !button->isEnabled()) continue;
    if (button->focusPolicy() == Qt::NoFocus) continue;
    button->setFocus(Qt::TabFocusReason);
    Mask::settle();
    QVERIFY2(button->visibleRegion().contains(button->rect().center()), qPrintable(button->text()));
  }
  if (made) made->hide();
}

void SmallScreenTest::everyTextIsWhole() {
  QFETCH(const Make, make);
  Mask mask;
  const Made made = make(mask);
  QCOMPARE(cutTexts(made ? open(made) : mask.window), QStringList());
  if (made) made->hide();
}

CALVORA_TEST_MAIN(SmallScreenTest)
#include "small_screen_test.moc"
