#include "platform/look.h"

#include <QApplication>
#include <QColor>
#include <QDir>
#include <QIcon>
#include <QLibraryInfo>
#include <QLocale>
#include <QPalette>
#include <QStyle>
#include <QToolTip>
#include <QTranslator>
#include <QVariant>
#include <QWidget>
#include <array>

#include "platform/focus_style.h"
#include "platform/placement.h"

namespace calvora {

using namespace Qt::StringLiterals;

namespace {

QString roleName(Role role) {
  static const std::array kNames{u"input"_s, u"computed"_s, u"locked"_s, u"unit"_s, u"section"_s};
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
QLineEdit[role], QLabel[role="computed"], *[role="unit"] {
  border: 1px solid #728194; border-radius: 3px; padding: 2px 5px; }
QLineEdit[role="input"] { background: #ffffff; color: #000000; }
QLineEdit[role="computed"], QLabel[role="computed"] {
  background: #dde2e8; color: #0000c0; border-color: #b3bdc8; }
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
