// The window of the plausibility check, beside the real mask.
#include <QClipboard>
#include <QTabWidget>

#include "plausi/windows/comparison_table.h"
#include "plausi/windows/ph_scale.h"
#include "plausi/windows/plausi.h"
#include "plausi/windows/uncertainty_form.h"
#include "storage/settings.h"
#include "storage/windows/dateien.h"
#include "support/tables.h"
#include "support/window_support.h"

using namespace calvora;
using namespace Qt::StringLiterals;

namespace {

/// A mask with the window opened over it by its keys.
struct Checked : Mask {
  Checked() { press(Qt::Key_L, Qt::ControlModifier); }

  plausi& check() {
    auto* open = shownWindow<plausi>();
    if (open == nullptr) qFatal("the window is not open");
    return *open;
  }

  void enterAnalysis() {
    activate();
    for (const QString& entry : u"1 420|2 9|3 10|5 2,5|4 0,2|23 60|24 10"_s.split('|'_L1)) {
      enter(entry.section(' '_L1, 0, 0).toInt(), entry.section(' '_L1, 1));
    }
  }

  [[nodiscard]] Plausibility expected() const {
    const QString& setting = program.settings.slot[setting::kUncertainties];
    return checkPlausibility(program.record, uncertaintiesOf(setting));
  }

  /// What window and status bar show otherwise than the record says.
  QStringList differences() {
    const Plausibility found = expected();
    const ComparisonTable& table = *check().MSFlexGrid1;
    QStringList wrong;
    for (int row = 0; row < static_cast<int>(found.rows.size()); ++row) {
      const QStringList cells = cellsOf(found.rows[static_cast<size_t>(row)]);
      for (int column = 0; column < cells.size(); ++column) {
        const QTableWidgetItem* cell = table.item(row, column);
        if (cell == nullptr || cell->text() != cells[column]) wrong += cells[column];
      }
    }
    if (table.rowCount() != static_cast<int>(found.rows.size())) wrong += u"rows"_s;
    if (!check().Label1->text().endsWith(found.summary())) wrong += found.summary();
    const QString marks = check().Picture1->accessibleDescription();
    for (const PhMark& mark : found.marks) {
      if (!marks.contains(mark.name)) wrong += mark.name;
    }
    const QString word = verdictSymbol(found.overall()) + ' '_L1 + verdictWord(found.overall());
    if (window.Command4->text() != word) wrong += word;
    return wrong;
  }

  QString copied(const std::function<void()>& copy) {
    QGuiApplication::clipboard()->clear();
    copy();
    return QGuiApplication::clipboard()->text();
  }

  void activateCheck() {
    check().activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&check()));
  }

  void typeInto(TextBox& box, const QString& text) {
    activateCheck();
    check().SSTab1->setCurrentIndex(1);
    box.setFocus();
    box.selectAll();
    QTest::keyClick(&box, Qt::Key_Backspace);
    QTest::keyClicks(&box, text);
    QTest::keyClick(&box, Qt::Key_Enter);
    settle();
  }
};

}  // namespace

class PlausiWindowTest : public QObject {
  Q_OBJECT

 private slots:
  void itFollowsTheMask() {
    Checked mask;
    QCOMPARE(mask.differences(), QStringList());
    mask.enterAnalysis();
    QCOMPARE(mask.differences(), QStringList());
    QCOMPARE(mask.expected().overall(), Verdict::kWiderspruch);
    const auto open = [] {
      return std::ranges::count_if(QApplication::topLevelWidgets(), [](QWidget* widget) {
        return dynamic_cast<plausi*>(widget) != nullptr && widget->isVisible();
      });
    };
    mask.window.Command4->click();  // there already
    QCOMPARE(open(), 1);
    QTest::keyClick(&mask.check(), Qt::Key_Escape);
    QCOMPARE(open(), 0);
    mask.activate();
    mask.window.Command4->setFocus(Qt::TabFocusReason);
    mask.press(Qt::Key_Enter);
    QCOMPARE(open(), 1);
    QCOMPARE(mask.differences(), QStringList());
    mask.program.record.flag[flag::kStatus].clear();
    mask.window.mnu_neustart->trigger();
    mask.window.mnu2_plausi->trigger();  // before the queued check
    QCOMPARE(mask.expected().overall(), Verdict::kNichtPrüfbar);
    QCOMPARE(mask.differences(), QStringList());
    QVERIFY(mask.check().Picture1->accessibleDescription().startsWith(u"noch kein"_s));
  }

  void theTableIsCopied() {
    Checked mask;
    mask.enterAnalysis();
    plausi& check = mask.check();
    mask.activateCheck();
    const auto byKeys = [&] {
      QTest::keyClick(check.focusWidget(), Qt::Key_C, Qt::ControlModifier);
    };
    const std::vector<Comparison> rows = mask.expected().rows;
    QString whole = cellHeadings().join('\t'_L1) + '\n'_L1;
    for (const Comparison& row : rows) whole += cellsOf(row).join('\t'_L1) + '\n'_L1;
    QCOMPARE(mask.copied([&] { check.Command1(1).click(); }), whole);
    check.MSFlexGrid1->setFocus();
    check.MSFlexGrid1->clearSelection();
    QCOMPARE(mask.copied(byKeys), whole);
    check.MSFlexGrid1->selectRow(2);
    QCOMPARE(mask.copied(byKeys).split('\n'_L1).value(1), cellsOf(rows[2]).join('\t'_L1));
    QCOMPARE(mask.copied(byKeys).count('\n'_L1), 2);
  }

  void anUncertaintyIsCheckedAndKept_data() {  // what is typed => what then stands there, !: told
    rows<QString>(
        "0,25=>0,25 | .5=>0,5 | 0=>0 | =>0,1 | 1000=>1000 | 1001=>0,1 ! | 1,2,3=>0,1 ! | "
        "a-<5=>5 | ,=>0,1 !");
  }
  void anUncertaintyIsCheckedAndKept() {
    QFETCH(QString, given);
    QFETCH(QString, expected);
    Checked mask;
    mask.enterAnalysis();
    TextBox& box = mask.check().Form1->Text1(feld::kPh);
    const bool refused = expected.endsWith('!'_L1);
    if (refused) mask.questions.expect(says(u"uncertainty 1000"_s));
    mask.typeInto(box, given);
    QCOMPARE(box.text(), expected.section(' '_L1, 0, 0));
    QCOMPARE(box.hasFocus(), refused);
    QCOMPARE(mask.differences(), QStringList());

    // It is found again by another run, and given up for the default.
    Settings again;
    readSettings(again, mask.program.programFolder);
    const QString kept = again.slot[setting::kUncertainties];
    QCOMPARE(kept.isEmpty(), box.text() == "0,1"_L1);
    QCOMPARE(uncertaintiesOf(kept), mask.check().Form1->uncertainties());
    mask.check().Form1->Command1->click();
    QCOMPARE(box.text(), u"0,1"_s);
    QCOMPARE(mask.program.settings.slot[setting::kUncertainties], QString());
    QCOMPARE(mask.differences(), QStringList());
  }

  void whatCannotBeWrittenIsToldAndUsed() {
    Checked mask;
    mask.program.programFolder = u"/gibt/es/nicht"_s;
    UncertaintyForm& form = *mask.check().Form1;
    mask.typeInto(form.Text2(feld::kKs43), u"7"_s);
    const auto& told = *mask.check().findChild<QLabel*>(u"failure"_s);
    QVERIFY(told.text().contains("Einstellungen wurden nicht gespeichert"_L1));
    QVERIFY(!told.isHidden());
    QCOMPARE(form.Text2(feld::kKs43).text(), u"7"_s);
    QVERIFY(mask.program.settings.slot[setting::kUncertainties].contains('7'_L1));
  }

  void theKeysWalkTheUncertainties() {
    Checked mask;
    plausi& check = mask.check();
    mask.activateCheck();
    check.SSTab1->setCurrentIndex(1);
    UncertaintyForm& form = *check.Form1;
    form.Text1(feld::kLeitfähigkeit).setFocus();
    const std::pair<Qt::Key, TextBox*> walk[] = {{Qt::Key_Enter, &form.Text2(feld::kLeitfähigkeit)},
                                                 {Qt::Key_Down, &form.Text2(feld::kPh)},
                                                 {Qt::Key_Enter, &form.Text1(feld::kTemperatur)},
                                                 {Qt::Key_Up, &form.Text1(feld::kPh)}};
    for (const auto& [key, box] : walk) {
      QTest::keyClick(check.focusWidget(), key);
      QCOMPARE(check.focusWidget(), box);
    }
    // What is still being typed counts when a button is pressed.
    QTest::keyClicks(check.focusWidget(), u"0,7"_s);
    check.Command1(1).click();
    QCOMPARE(form.uncertainties()[1].absolute, 0.7);
  }
};

CALVORA_TEST_MAIN(PlausiWindowTest)
#include "plausi_window_test.moc"
