// Any bytes as a settings file: read, edited as the company line's window does, written, read back.
#include "storage/settings.h"

#include <QDir>

#include "fuzz_support.h"

using namespace calvora;

namespace {

/// Writes the settings and reads them into new ones. Empty if a text is too long for a line.
std::optional<Settings> saved(Settings& settings, const fuzz::TemporaryFile& file) {
  return fuzz::written(
      [&] {
        writeSettings(settings, file.folder(), setting::kFirstSegment);
        Settings again;
        readSettings(again, file.folder());
        return again;
      },
      [&] {
        QStringList texts(settings.segments.begin(), settings.segments.end());
        for (int slot = 1; slot <= 12; ++slot) texts += settings.slot[slot];
        return texts;
      });
}

void requireSame(const Settings& settings, const Settings& again, const QString& programFolder) {
  for (int slot = 1; slot <= 12; ++slot) {
    if (slot >= setting::kFirstSegment && slot < setting::kFirstSegment + 4) continue;
    const QString& text = again.slot[slot];
    // A folder that is not given or cannot be stored is the default one.
    const bool usual = slot == setting::kDataFolder && text == defaultDataFolder(programFolder);
    require(usual || text == inFile(settings.slot[slot]), "a setting comes back", text);
  }
  for (size_t i = 0; i < settings.segments.size(); ++i) {
    require(again.segments.at(i) == inFile(settings.segments.at(i)), "a segment comes back",
            settings.segments.at(i));
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  static const fuzz::TemporaryFile file(QStringLiteral("cvra.ini"));
  // Copies of what runs before could not read would slow this one down.
  QDir folder(file.folder());
  for (const QString& copy : folder.entryList({QStringLiteral("*.alt*")})) folder.remove(copy);
  file.put(fuzz::bytes(data, size));

  Settings settings;
  readSettings(settings, file.folder());
  auto again = saved(settings, file);
  if (!again) return 0;
  requireSame(settings, *again, file.folder());
  const QString& line = again->slot[setting::kPrintLine];
  require(!line.trimmed().isEmpty() && line.size() <= kLongestPrintLine,
          "a print line is there and fits", line);

  // What the company line's window shows, saves, and shows again.
  again->segments = storedSegments(linesOfSegmentList(again->slot[setting::kSegmentList]));
  const auto edited = saved(*again, file);
  if (!edited) return 0;
  requireSame(*again, *edited, file.folder());
  if (joinedSegments(again->segments).left(kLongestPrintLine).trimmed().isEmpty()) return 0;
  require(linesOfSegmentList(edited->slot[setting::kSegmentList]) == edited->segments,
          "the window shows what it saved", edited->slot[setting::kSegmentList]);
  return 0;
}
