#include "platform/look.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QColor>
#include <QDir>
#include <QIcon>
#include <QLibraryInfo>
#include <QLocale>
#include <QPainter>
#include <QPalette>
#include <QProxyStyle>
#include <QPushButton>
#include <QStyleFactory>
#include <QStyleOption>
#include <QToolTip>
#include <QTranslator>
#include <QVariant>
#include <QWidget>
#include <array>

#include "platform/placement.h"

namespace calvora {

using namespace Qt::StringLiterals;

namespace {

constexpr double kRingWidth = 2;
constexpr double kRingRadius = 3;

void drawRing(QPainter& painter, const QRect& around, const QPalette& palette) {
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(palette.color(QPalette::Highlight), kRingWidth));
  painter.setBrush(Qt::NoBrush);
  const double inset = kRingWidth / 2;
  painter.drawRoundedRect(QRectF(around).adjusted(inset, inset, -inset, -inset), kRingRadius,
                          kRingRadius);
  painter.restore();
}

bool hasFocus(const QStyleOption* option) {
  return option->state.testFlag(QStyle::State_HasFocus);
}

/// The toolkit's own look, with one clear ring around whatever has the focus, however it came
/// there: the toolkit marks it but faintly, and buttons and lists only after Tab was pressed.
class FocusStyle : public QProxyStyle {
 public:
  FocusStyle() : QProxyStyle(QStyleFactory::create(u"Fusion"_s)) {}

  void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override {
    if (element == PE_FrameFocusRect) {
      const bool button = qobject_cast<const QPushButton*>(widget) != nullptr;
      drawRing(*painter, button ? widget->rect() : option->rect, option->palette);
      return;
    }
    QProxyStyle::drawPrimitive(element, option, painter, widget);
    const bool framed = element == PE_FrameLineEdit || element == PE_PanelButtonCommand;
    if (framed && hasFocus(option)) {
      drawRing(*painter, option->rect, option->palette);
    }
  }

  /// The frame of a list is where its focus is to be seen.
  void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                   const QWidget* widget) const override {
    QProxyStyle::drawControl(element, option, painter, widget);
    const bool list = qobject_cast<const QAbstractItemView*>(widget) != nullptr;
    if (element == CE_ShapedFrame && list && hasFocus(option)) {
      drawRing(*painter, option->rect, option->palette);
    }
  }

  void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                          QPainter* painter, const QWidget* widget) const override {
    QProxyStyle::drawComplexControl(control, option, painter, widget);
    const bool box = control == CC_ComboBox || control == CC_SpinBox;
    if (box && hasFocus(option)) drawRing(*painter, option->rect, option->palette);
  }
};

QString roleName(Role role) {
  static const std::array kNames{u"input"_s,  u"completed"_s, u"computed"_s, u"kept"_s,
                                 u"locked"_s, u"unit"_s,      u"section"_s};
  return kNames.at(static_cast<size_t>(role));
}

QPalette palette() {
  QPalette colours(QColor(0xe8, 0xed, 0xf2));
  colours.setColor(QPalette::Window, QColor(0xee, 0xf2, 0xf6));
  colours.setColor(QPalette::WindowText, QColor(0x1b, 0x24, 0x30));
  colours.setColor(QPalette::Base, Qt::white);
  colours.setColor(QPalette::Text, Qt::black);
  colours.setColor(QPalette::ButtonText, QColor(0x1b, 0x24, 0x30));
  colours.setColor(QPalette::Highlight, QColor(0x0b, 0x57, 0xd0));
  colours.setColor(QPalette::HighlightedText, Qt::white);
  colours.setColor(QPalette::ToolTipBase, QColor(0xff, 0xfb, 0xd6));
  colours.setColor(QPalette::ToolTipText, Qt::black);
  for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
    colours.setColor(QPalette::Disabled, role, QColor(0x76, 0x7f, 0x8a));
  }
  return colours;
}

QString styleSheet() {
  return uR"(
QLineEdit[role], QLabel[role="computed"], QLabel[role="kept"], *[role="unit"] {
  border: 1px solid #728194; border-radius: 3px; padding: 2px 5px; }
QLineEdit[role="input"] { background: #ffffff; color: #000000; }
QLineEdit[role="computed"], QLabel[role="computed"] {
  background: #dde2e8; color: #0000c0; border-color: #b3bdc8; }
QLineEdit[role="completed"] {
  background: #ffffff; color: #000000; border: 2px dotted #3d4a59; padding: 1px 4px;
  font-style: italic; }
QLineEdit[role="kept"], QLabel[role="kept"] {
  background: #f8edd8; color: #5a3000; border: 2px dashed #8a4b00; padding: 1px 4px;
  font-style: italic; }
QLineEdit[role="locked"] { background: #808080; border: 1px solid #5c5c5c; }
QLineEdit[role]:focus { border: 2px solid #0b57d0; padding: 1px 4px; }
*[role="unit"] { background: #fffbd6; color: #1b2430; border-color: #d6cf9a; }
QPushButton[role="unit"]:enabled { border-color: #8a8140; }
QPushButton[role="unit"]:enabled:hover { background: #fff3a6; }
QPushButton[role="unit"]:focus { border: 2px solid #0b57d0; padding: 1px 4px; }
QPlainTextEdit { border: 1px solid #728194; border-radius: 3px; padding: 1px; }
QPlainTextEdit:disabled { background: #dde2e8; color: #0000c0; border-color: #b3bdc8; }
QPlainTextEdit:focus { border: 2px solid #0b57d0; padding: 0; }
QLabel[role="section"] {
  background: #1f4e79; color: #ffffff; font-weight: bold; border-radius: 3px; padding: 4px 6px; }
QStatusBar { border-top: 1px solid #b3bdc8; }
QStatusBar::item { border: none; }
)"_s;
}

QIcon icon() {
  QIcon icon;
  const QDir sizes(u":/icons"_s);
  for (const QString& size : sizes.entryList()) icon.addFile(sizes.filePath(size));
  return icon;
}

}  // namespace

void applyLook(QApplication& application) {
  QApplication::setApplicationVersion(QStringLiteral(CALVORA_VERSION));
  QApplication::setStyle(new FocusStyle);  // the application owns it
  QApplication::setPalette(palette());
  QToolTip::setPalette(palette());  // a tip would otherwise keep the desktop's
  keepWindowsOnScreen(application);
  QFont font(u"Arial"_s, 10);
  font.setStyleHint(QFont::SansSerif);
  QApplication::setFont(font);
  application.setStyleSheet(styleSheet());

  QApplication::setWindowIcon(icon());

  // What was shipped beside the program comes first: the toolkit's own may not be installed.
  auto* german = new QTranslator(&application);
  for (const QString& folder : {QApplication::applicationDirPath() + u"/translations"_s,
                                QLibraryInfo::path(QLibraryInfo::TranslationsPath)}) {
    if (!german->load(QLocale(QLocale::German), u"qtbase"_s, u"_"_s, folder)) continue;
    QApplication::installTranslator(german);
    return;
  }
}

QFont monospacedFont() {
  QFont font(u"Courier New"_s, 10);
  font.setStyleHint(QFont::Monospace);
  return font;
}

void keepReadable(QWidget& field) {
  QPalette colours = field.palette();
  colours.setColor(QPalette::Disabled, QPalette::Base, QColor(0xdd, 0xe2, 0xe8));
  colours.setColor(QPalette::Disabled, QPalette::Text, QColor(0x00, 0x00, 0xc0));
  field.setPalette(colours);
}

void setStyleProperty(QWidget& control, const char* property, const QString& value) {
  if (control.property(property).toString() == value) return;
  control.setProperty(property, value);
  control.style()->unpolish(&control);
  control.style()->polish(&control);
}

void setRole(QWidget& control, Role role) {
  setStyleProperty(control, "role", roleName(role));
}

}  // namespace calvora
