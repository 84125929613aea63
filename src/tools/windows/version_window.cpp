#include "tools/windows/version_window.h"

#include <QCoreApplication>
#include <QPainter>

#include "base/version.h"
#include "platform/picture.h"
#include "platform/twips.h"
#include "tools/versionstexte.h"

namespace calvora {

using namespace Qt::StringLiterals;

namespace {

// Twips. The window is flat, so that the green stays dark enough for white text up to its top.
constexpr int kWidth = 6900;
constexpr int kHeight = 2250;
constexpr int kLabelHeight = 300;
constexpr int kPictureSide = 1350;
constexpr int kPictureLeft = 5100;

constexpr Farbverlauf kBackground{.start = {0, 80, 0}, .end = {0, 300, 29}};

/// The program's sign on a white disc, which parts it from the green.
void drawSign(QPainter& painter) {
  painter.setPen(Qt::NoPen);
  painter.setBrush(Qt::white);
  painter.drawEllipse(QRectF(0, 0, 100, 100));
  painter.translate(17, 14);
  painter.scale(0.66, 0.66);
  drawDrop(painter);
}

}  // namespace

Version::Version(const Program& program, QWidget* parent) : QDialog(parent) {
  setFixedSize(twips(kWidth), twips(kHeight));
  setStyleSheet(u"QLabel { color: #ffffff; }"_s);
  Image1 = new Picture(drawSign, kPictureSide, this);
  Image1->move(twips(kPictureLeft), twips((kHeight - kPictureSide) / 2));
  Form_Load(program);
}

void Version::Form_Load(const Program& program) {
  setWindowTitle(QString(40, ' '_L1) + u"Version"_s);
  addLabel(1, u"Projekt"_s, {.left = 450, .top = 300, .width = 1000});
  addLabel(2, u"Calvora"_s, {.left = 1660, .top = 300, .width = 1600});
  addLabel(3, u"Version"_s, {.left = 450, .top = 650, .width = 1000});
  addLabel(4, versionsnummer(kVersionMajor, kVersionMinor, kVersionRevision),
           {.left = 1660, .top = 650, .width = 600});
  addLabel(0, vdate(QCoreApplication::applicationFilePath()),
           {.left = 2500, .top = 650, .width = 1230});
  addLabel(5, u"Copyright"_s, {.left = 450, .top = 1600, .width = 1000});
  addLabel(6, jahre(program.today()), {.left = 1660, .top = 1600, .width = 1230});
  QFont bold = font();
  bold.setBold(true);
  Label1(2).setFont(bold);
}

/// A label is at least as wide as its text, so that a longer version is not cut.
void Version::addLabel(int index, const QString& text, const Place& place) {
  auto& label = Label1.add(index, new QLabel(text, this));
  label.setTextFormat(Qt::PlainText);
  const int width = qMax(twips(place.width), label.sizeHint().width());
  label.setGeometry(twips(place.left), twips(place.top), width, twips(kLabelHeight));
}

/// Several lines of the gradient, which counts in twips, fall on one row of pixels: the uppermost
/// of them is the one that is seen.
void Version::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  for (int y = 0; y < height(); ++y) {
    const int line = qMin(kHeight - y * kHeight / height(), kHeight - 1);
    const Rgb colour = kBackground.colour(line, kWidth);
    painter.fillRect(0, y, width(), 1, QColor(colour.red, colour.green, colour.blue));
  }
}

void Version::mousePressEvent(QMouseEvent*) {
  close();
}

void Version::keyPressEvent(QKeyEvent*) {
  close();
}

}  // namespace calvora
