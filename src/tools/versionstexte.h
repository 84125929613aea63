#pragma once

#include <QDate>
#include <QString>

namespace calvora {

/// "3.1 /25" for version 3.1 revision 25.
QString versionsnummer(int major, int minor, int revision);

/// The month in which a program file was built, which is that of its last change, in local time:
/// "03-2021". Empty if there is no such file.
QString vdate(const QString& programFile);

/// The years from the first version on: "2017/2026".
QString jahre(QDate today);

/// A colour, each component 0 to 255.
struct Rgb {
  int red;
  int green;
  int blue;

  friend bool operator==(const Rgb&, const Rgb&) = default;
};

/// A background that changes its colour from the bottom edge upwards. The ends are those that would
/// be reached after as many lines as the area is wide; a component stays at 255 where it would
/// pass it.
struct Farbverlauf {
  Rgb start;
  Rgb end;

  /// Colour of a line, counted from 0 at the bottom, in an area `width` (above 0) lines wide.
  [[nodiscard]] Rgb colour(int line, int width) const;
};

}  // namespace calvora
