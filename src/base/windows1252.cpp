#include "base/windows1252.h"

#include <algorithm>
#include <array>

namespace calvora {

namespace {

/// The characters of the bytes 0x80 to 0x9F; all other bytes are those of Latin-1.
constexpr std::array<char16_t, 32> kSpecial{
    0x20AC, 0x81,   0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x8D,   0x017D, 0x8F,   0x90,   0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x9D,   0x017E, 0x0178};
constexpr char16_t kFirstSpecial = 0x80;
constexpr char16_t kFirstLatin = 0xA0;

char byteOf(char16_t character) {
  const bool latin = character >= kFirstLatin && character <= 0xFF;
  if (character < kFirstSpecial || latin) return static_cast<char>(character);
  const auto* special = std::ranges::find(kSpecial, character);
  if (special == kSpecial.end()) return '?';
  return static_cast<char>(kFirstSpecial + (special - kSpecial.begin()));
}

}  // namespace

QByteArray toWindows1252(const QString& text) {
  QByteArray bytes;
  bytes.reserve(text.size());
  for (const QChar c : text) {
    if (!c.isLowSurrogate()) bytes += byteOf(c.unicode());
  }
  return bytes;
}

QString fromWindows1252(const QByteArray& bytes) {
  QString text;
  text.reserve(bytes.size());
  for (const char c : bytes) {
    const auto byte = static_cast<unsigned char>(c);
    const bool special = byte >= kFirstSpecial && byte < kFirstLatin;
    text += QChar(special ? kSpecial.at(static_cast<size_t>(byte - kFirstSpecial)) : byte);
  }
  return text;
}

}  // namespace calvora
