#include "dialogs/windows/bb_msg.h"

#include <QBoxLayout>
#include <QCoreApplication>
#include <QGuiApplication>
#include <QWindow>

#include "dialogs/windows/symbols.h"
#include "platform/form.h"

namespace calvora {

using namespace Qt::StringLiterals;

bb_msg::bb_msg(Desktop& desktop) : desktop_(desktop) {
  setWindowTitle(u"  Laufzeitfehler"_s);
  setAttribute(Qt::WA_DeleteOnClose);
  const std::array captions{
      u"es ist ein Fehler aufgetreten !"_s,
      QString(),
      u"    Bitte teilen Sie uns diese Fehlermeldung mit -"_s,
      u"So können wir den Fehler eliminieren und eine Berichtigung.erstellen."_s,
      u"support@calvora.example      vielen Dank !"_s,
  };
  auto* texts = new QVBoxLayout;
  texts->setSpacing(8);
  for (int index = 1; index <= 5; ++index) {
    auto& label = Label1.add(index, new QLabel(captions.at(static_cast<size_t>(index - 1)), this));
    label.setTextFormat(Qt::PlainText);
    texts->addWidget(&label);
  }
  Label1(1).setStyleSheet(u"font-size: 12pt; font-weight: bold"_s);
  // What is to be passed on must be easy to copy.
  for (const int index : {2, 5}) Label1(index).setTextInteractionFlags(Qt::TextSelectableByMouse);

  auto* message = new QHBoxLayout;
  message->setSpacing(18);
  message->addWidget(new Picture(symbolDrawing(Symbol::kStop), 720, this), 0, Qt::AlignTop);
  message->addLayout(texts, 1);

  addButtons(Check1, 2400, {{1, u"Programm fortsetzen"_s}, {2, u"Programm abbrechen"_s}},
             [this](int index) { Check1_Click(index); });
  Check1(1).setDefault(true);
  Check1(1).setFocus();

  auto* layout = new QVBoxLayout(this);
  setWindowMargins(*layout);
  layout->setSpacing(20);
  layout->addLayout(message);
  layout->addLayout(makeButtonRow({&Check1(1), &Check1(2)}));
  layout->setSizeConstraint(QLayout::SetFixedSize);
}

void bb_msg::message(int mode, const QString& text) {
  if (mode != 2) return;
  const QString version = QCoreApplication::applicationVersion().remove('.'_L1);
  Label1(2).setText(u"  Error-Code :   %1    V-%2"_s.arg(text, version));
  show();
  raise();
  activateWindow();
}

bool bb_msg::event(QEvent* event) {
  if (event->type() == QEvent::WindowBlocked) joinModalWindow();
  return QDialog::event(event);
}

/// A modal window blocks every window that does not belong to it. This one belongs to whichever is
/// open, and to the one below when that closes.
void bb_msg::joinModalWindow() {
  QWindow* modal = QGuiApplication::modalWindow();
  windowHandle()->setTransientParent(modal);
  if (modal == nullptr) return;
  constexpr auto kOnceItIsOver = Qt::ConnectionType(Qt::QueuedConnection | Qt::UniqueConnection);
  connect(modal, &QWindow::visibleChanged, this, &bb_msg::joinModalWindow, kOnceItIsOver);
}

void bb_msg::Check1_Click(int index) {
  close();
  if (index == 2) desktop_.endProgram();
}

}  // namespace calvora
