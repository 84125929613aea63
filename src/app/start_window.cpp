#include "app/start_window.h"

#include <QBoxLayout>
#include <QGridLayout>
#include <QRegularExpression>

#include "platform/form.h"
#include "platform/picture.h"
#include "platform/twips.h"

namespace calvora {

using namespace Qt::StringLiterals;

namespace {

/// A caption's columns as lines: it is written in one line, its columns separated by runs of
/// blanks. It breaks at every long run that is followed by a list mark or a new word.
QString broken(QString caption) {
  static const QRegularExpression kBreak(u" {4,}(?=[>-] |[A-Z][a-z])"_s);
  return caption.replace(kBreak, u"\n"_s);
}

QFont scaled(QFont font, int points, bool bold) {
  font.setPointSize(points);
  font.setBold(bold);
  return font;
}

}  // namespace

start::start(QWidget& mainWindow, Desktop& desktop)
    : QDialog(&mainWindow), Frame1(new QFrame(this)), Frame2(new QFrame(this)), desktop_(desktop) {
  setWindowTitle(u"CALVORA"_s);
  setAttribute(Qt::WA_DeleteOnClose);
  for (QFrame* frame : {Frame1, Frame2}) {
    frame->setFrameShape(QFrame::StyledPanel);
    frame->setAutoFillBackground(true);
    frame->setBackgroundRole(QPalette::Base);
  }
  buildHeader();
  buildExplanation();

  auto* layout = new QVBoxLayout(this);
  setWindowMargins(*layout);
  layout->setSpacing(16);
  layout->addWidget(Frame1);
  layout->addWidget(Frame2);
  buildContact();
  layout->setSizeConstraint(QLayout::SetFixedSize);
  move(mainWindow.pos() + QPoint(twips(40), twips(400)));
}

void start::buildHeader() {
  auto* header = new QHBoxLayout(Frame1);
  header->setContentsMargins(20, 16, 20, 16);
  header->setSpacing(20);
  header->addWidget(&Image2.add(0, new Picture(drawDrop, 1100)));
  auto* titles = new QGridLayout;
  titles->setVerticalSpacing(6);
  int row = 0;
  for (const auto& caption :
       {u"pH-Wert -- Rechner CALVORA  für   "_s, u"Plausibilitätsüberprüfung von Messwerten "_s,
        u"Erfassung von pH-Werten in Heiz- und Kühlkreisläufen "_s}) {
    auto& label = Label1.add(row, new QLabel(caption));
    label.setFont(scaled(font(), row == 0 ? 16 : 12, row == 0));
    titles->addWidget(&label, row, 0, 1, row == 0 ? 1 : 2);
    ++row;
  }
  auto* field = new QLabel(u"Heizungs- und Kühlwasser"_s);
  field->setFont(scaled(font(), 16, true));
  field->setStyleSheet(u"color: #1f4e79"_s);
  titles->addWidget(field, 0, 1);
  titles->setColumnStretch(1, 1);
  header->addLayout(titles, 1);
}

void start::buildExplanation() {
  auto* grid = new QGridLayout(Frame2);
  grid->setContentsMargins(20, 16, 20, 16);
  grid->setHorizontalSpacing(28);
  grid->setVerticalSpacing(14);
  int index = 0;
  for (
      const auto& caption : {
          u"Die Software  errechnet auf Basis der erfassten Werte:"_s,
          u"> Temperatur                               > Säurekapazität Ks 4,3 / Ks8,2    > Basekapazität  Kb 8,2"_s,
          u"- mit Temperatur-Sonde                - per Titration                               - per Titration"_s,
          u"   folgende Werte:                                     > pH-Wert                                                > Hydrogencarbonat   HCO3                     > Kohlendioxid CO2  frei + überschüssig     > Carbonat      CO3"_s,
          u"Die Erfassung der  Mess-Parameter  sind  sorgfältig + nach Anleitung vorzunehmen !    Dies garantiert genaue Ergebnisse."_s,
          u" - - - und  führt  eine  Plausibilitäts -              Kontrolle  der  Messwerte durch."_s,
      }) {
    auto& label = Label3.add(index++, new QLabel(broken(caption)));
    label.setTextFormat(Qt::PlainText);
    label.setAlignment(Qt::AlignLeft | Qt::AlignTop);
  }
  Label3(0).setFont(scaled(font(), 11, true));
  Label3(4).setFont(scaled(font(), 10, true));
  grid->addWidget(&Label3(0), 0, 0, 1, 3);
  grid->addWidget(&Label3(1), 1, 0);
  grid->addWidget(&Label3(2), 1, 1);
  grid->addWidget(&Image2.add(1, new Picture(drawDrop, 1500)), 1, 2, 3, 1, Qt::AlignCenter);
  grid->addWidget(&Label3(3), 2, 0);
  grid->addWidget(&Label3(5), 2, 1, Qt::AlignBottom);
  grid->addWidget(&Label3(4), 3, 0, 1, 3);
  grid->setColumnStretch(2, 1);
}

void start::buildContact() {
  auto* contact = new QHBoxLayout;
  auto* lines = new QVBoxLayout;
  lines->setSpacing(2);
  int row = 0;
  for (const auto& line :
       {u"Bezug über:"_s, u"Calvora Wassertechnik"_s, u"Am Beispielbach 1, 12345 Musterstadt"_s,
        u"Telefon 00000 / 12 34 56"_s, u"kontakt@calvora.example"_s}) {
    lines->addWidget(&Label2.add(row++, new QLabel(line)));
  }
  contact->addLayout(lines, 1);
  addButtons(Command1, 1800, {{1, u"beenden"_s}, {2, u"Weiter"_s}},
             [this](int index) { Command1_Click(index); });
  for (const auto& [index, button] : Command1) contact->addWidget(button, 0, Qt::AlignBottom);
  Command1(2).setDefault(true);
  Command1(2).setFocus();
  static_cast<QVBoxLayout*>(layout())->addLayout(contact);
}

void start::Command1_Click(int index) {
  if (index == 1) return desktop_.endProgram();
  accept();
}

}  // namespace calvora
