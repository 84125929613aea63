#include <QInputDialog>

#include "dialogs/windows/nachricht.h"
#include "stops.h"
#include "tools/windows/dimum.h"
#include "tour.h"

using namespace Qt::StringLiterals;

namespace {

/// The converter that a unit button opens; it is closed again after `look`.
void visit(Tour& tour, int field, const std::function<void(calvora::dimum&)>& look) {
  tour.activate();
  QTest::mouseClick(&tour.window().Command1(field), Qt::LeftButton);
  QTest::qWait(20);
  auto* window = dynamic_cast<calvora::dimum*>(QApplication::activeWindow());
  tour.require(window != nullptr, u"the converter of field %1"_s.arg(field));
  if (window == nullptr) return;
  look(*window);
  if (window->isVisible()) QTest::keyClick(window, Qt::Key_Escape);
  tour.require(tour.window().isEnabled(), u"the mask after the converter"_s);
}

}  // namespace

void showConverter(Tour& tour) {
  visit(tour, 1, [&](calvora::dimum& window) {
    tour.picture(window, u"dimum"_s);
    tour.expectModal<QInputDialog>(u"the input box"_s, [&](QInputDialog& box) {
      tour.picture(box, u"converter-input"_s);
      QTest::keyClicks(box.focusWidget(), u"0,42"_s);
      QTest::keyClick(&box, Qt::Key_Enter);
    });
    QTest::keyClick(window.focusWidget(), Qt::Key_Down);
    QTest::keyClick(window.focusWidget(), Qt::Key_Enter);
    tour.require(window.Label3(1).text() == "420"_L1, u"420 µS/cm"_s);
    QTest::mouseClick(window.Command1, Qt::LeftButton);
    tour.require(!window.isVisible(), u"the value taken over"_s);
  });
  visit(tour, 3, [&](auto& window) { tour.picture(window, u"converter-temperature"_s); });
  visit(tour, 20, [&](auto& window) {
    QTest::mouseMove(window.windowHandle(), window.Label1(12).mapTo(&window, QPoint(5, 5)));
    tour.picture(window, u"converter-hardness"_s);
  });
  visit(tour, 23, [&](calvora::dimum& window) {
    QTest::keyClick(window.focusWidget(), Qt::Key_Left);
    tour.picture(window, u"converter-calcium"_s);
    tour.expectModal<calvora::nachricht>(u"the help"_s, [&](calvora::nachricht& help) {
      tour.picture(help, u"converter-help"_s);
      QTest::keyClick(&help, Qt::Key_Enter);
    });
    window.mnuhelp->trigger();
  });
  tour.activate();
  tour.picture(tour.window(), u"main-after-converter"_s);
}
