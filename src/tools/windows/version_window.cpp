#include "tools/windows/version_window.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QFileInfo>
#include <QPainter>

#include "platform/picture.h"
#include "platform/twips.h"

namespace calvora {

using namespace Qt::StringLiterals;

namespace {

// Twips. The window is flat, so that the green stays dark enough for white text up to its top.
constexpr int kWidth = 6900;
constexpr int kHeight = 2250;
constexpr int kLabelHeight = 300;
constexpr int kPictureSide = 1350;
constexpr int kPictureLeft = 5100;

/// From the bottom edge, rgb(0, 80, 0), upwards. The colour rises to (0, 300, 29) over as many
/// twips as the window is wide, so that its top edge, 2250 of 6900 above, has reached (0, 152, 9).
const QString kLook =
    uR"(
QDialog { background: qlineargradient(x1:0, y1:1, x2:0, y2:0, stop:0 #005000, stop:1 #009809); }
QLabel { color: #ffffff; }
)"_s;

/// The program's sign on a white disc, which separates it from the green.
void drawSign(QPainter& painter) {
  painter.setPen(Qt::NoPen);
  painter.setBrush(Qt::white);
  painter.drawEllipse(QRectF(0, 0, 100, 100));
  painter.translate(17, 14);
  painter.scale(0.66, 0.66);
  drawDrop(painter);
}

/// "3.1 /25" for version 3.1 revision 25.
QString versionNumber() {
  QString version = QCoreApplication::applicationVersion();
  return version.replace(version.lastIndexOf('.'_L1), 1, u" /"_s);
}

}  // namespace

Version::Version(QDate today, QWidget* parent) : QDialog(parent) {
  setWindowTitle(QString(40, ' '_L1) + u"Version"_s);
  setFixedSize(twips(kWidth), twips(kHeight));
  setStyleSheet(kLook);
  Image1 = new Picture(drawSign, kPictureSide, this);
  Image1->move(twips(kPictureLeft), twips((kHeight - kPictureSide) / 2));
  /// A label is at least as wide as its text, so that a longer version is not cut.
  const auto addLabel = [this](int index, const QString& text, int left, int top, int width) {
    QLabel& label = Label1.add(index, new QLabel(text, this));
    label.setTextFormat(Qt::PlainText);
    label.setGeometry(twips(left), twips(top), qMax(twips(width), label.sizeHint().width()),
                      twips(kLabelHeight));
  };
  addLabel(1, u"Projekt"_s, 450, 300, 1000);
  addLabel(2, u"Calvora"_s, 1660, 300, 1600);
  addLabel(3, u"Version"_s, 450, 650, 1000);
  addLabel(4, versionNumber(), 1660, 650, 600);
  addLabel(0, vdate(QCoreApplication::applicationFilePath()), 2500, 650, 1230);
  addLabel(5, u"Copyright"_s, 450, 1600, 1000);
  addLabel(6, u"2017/%1"_s.arg(today.year()), 1660, 1600, 1230);
  QFont bold = font();
  bold.setBold(true);
  Label1(2).setFont(bold);
}

QString Version::vdate(const QString& programFile) {
  return QFileInfo(programFile).lastModified().toString(u"MM-yyyy"_s);
}

void Version::mousePressEvent(QMouseEvent*) {
  close();
}

void Version::keyPressEvent(QKeyEvent*) {
  close();
}

}  // namespace calvora
