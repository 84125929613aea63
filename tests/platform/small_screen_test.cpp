// Every window on a screen that is smaller than it, and at the resolutions of today's desktops.
#include <QPushButton>
#include <QScreen>

#include "support/all_windows.h"

using namespace calvora;
using namespace Qt::StringLiterals;

namespace {

/// What a window cannot show whole: texts that need more room than their control has, and controls
/// that leave the window or lie upon each other.
QStringList cutTexts(const QWidget& window) {
  QStringList cut;
  QList<const QWidget*> seen;
  for (const QWidget* control : window.findChildren<QWidget*>()) {
    const auto* label = qobject_cast<const QLabel*>(control);
    const auto* button = qobject_cast<const QAbstractButton*>(control);
    if (!control->isVisibleTo(&window) || (label == nullptr && button == nullptr)) continue;
    const QString text = label != nullptr ? label->text() : button->text();
    if (text.trimmed().isEmpty()) continue;
    const bool wraps = label != nullptr && label->wordWrap();
    const int height = wraps ? label->heightForWidth(label->width()) : control->sizeHint().height();
    qsizetype blanks = 0;  // at its end, where nobody misses them
    while (text[text.size() - 1 - blanks] == QChar::Space) ++blanks;
    const int width =
        control->sizeHint().width() - control->fontMetrics().horizontalAdvance(text.right(blanks));
    const QRect place(control->mapTo(&window, QPoint()), control->size());
    bool fits = (wraps || control->width() >= width) && control->height() >= height &&
                window.rect().contains(place);
    for (const QWidget* other : seen) {
      fits = fits && !place.intersects({other->mapTo(&window, QPoint()), other->size()});
    }
    if (!fits) cut += text;
    seen += control;
  }
  return cut;
}

}  // namespace

class SmallScreenTest : public QObject {
  Q_OBJECT

 private slots:
  void everyButtonCanBeReached_data() { windows(); }
  void everyButtonCanBeReached() {
    look([](QWidget& window) {
      const QRect screen = window.screen()->availableGeometry();
      QVERIFY2(screen.contains(window.geometry()), "the window leaves the screen");
      for (QPushButton* button : window.findChildren<QPushButton*>()) {
        if (!button->isVisibleTo(&window) || !button->isEnabled()) continue;
        if (button->focusPolicy() == Qt::NoFocus) continue;
        button->setFocus(Qt::TabFocusReason);
        House::settle();
        QVERIFY2(button->visibleRegion().contains(button->rect().center()),
                 qPrintable(button->text()));
      }
    });
  }

  void everyTextIsWhole_data() { windows(); }
  void everyTextIsWhole() {
    look([](QWidget& window) { QCOMPARE(cutTexts(window), QStringList()); });
  }

 private:
  static void windows() {
    QTest::addColumn<int>("way");
    QTest::newRow("main") << -1;
    for (int way = 0; way < std::ssize(allWindows()); ++way) {
      if (!allWindows().at(way).ofQt) QTest::newRow(allWindows().at(way).name) << way;
    }
  }

  static void look(const std::function<void(QWidget&)>& at) {
    QFETCH(const int, way);
    House house;
    if (way < 0) return at(house.window);
    QVERIFY2(lookAt(allWindows().at(way), house, at) > 0, "no window came");
  }
};

CALVORA_TEST_MAIN(SmallScreenTest)
#include "small_screen_test.moc"
