#include "Palettes.h"

#include <QApplication>
#include <QFontDatabase>
#include <QFontInfo>
#include <QPalette>
#include <QToolTip>

#include <iterator>

namespace {

struct RoleColour {
  QPalette::ColorRole role;
  QRgb light;
  QRgb dark;
};

constexpr RoleColour roleColours[] = {
    {QPalette::Window, 0xfff0f1f3, 0xff36393f},
    {QPalette::WindowText, 0xff1d1f23, 0xffe3e5e8},
    {QPalette::Base, 0xffffffff, 0xff1c1e21},
    {QPalette::AlternateBase, 0xfff5f6f8, 0xff24272b},
    {QPalette::Text, 0xff1d1f23, 0xffe3e5e8},
    {QPalette::Button, 0xfff0f1f3, 0xff41454c},
    {QPalette::ButtonText, 0xff1d1f23, 0xffe3e5e8},
    {QPalette::BrightText, 0xffffffff, 0xffffffff},
    {QPalette::ToolTipBase, 0xfffffbe0, 0xff3a3d44},
    {QPalette::ToolTipText, 0xff1d1f23, 0xffe3e5e8},
    {QPalette::Highlight, 0xff2467b8, 0xff2f6fbd},
    {QPalette::HighlightedText, 0xffffffff, 0xffffffff},
    {QPalette::Link, 0xff1c5fb0, 0xff7ab4f5},
    {QPalette::LinkVisited, 0xff6b4aa0, 0xffb79cec},
    {QPalette::PlaceholderText, 0xff6d727b, 0xff9499a2},
    {QPalette::Light, 0xffffffff, 0xff545962},
    {QPalette::Midlight, 0xffe2e4e8, 0xff4a4e56},
    {QPalette::Mid, 0xffb4b8bf, 0xff2b2d32},
    {QPalette::Dark, 0xff969ba4, 0xff1a1c1f},
    {QPalette::Shadow, 0xff5f646d, 0xff0e0f11},
};

constexpr RoleColour disabledColours[] = {
    {QPalette::WindowText, 0xff8b909a, 0xff7d828b},
    {QPalette::Text, 0xff8b909a, 0xff7d828b},
    {QPalette::ButtonText, 0xff8b909a, 0xff7d828b},
    {QPalette::Highlight, 0xffc3c8d0, 0xff4a4e56},
    {QPalette::HighlightedText, 0xff5a5f68, 0xffa4a9b2},
};

QRgb colourOf(const RoleColour& entry, PaletteKind kind) {
  return kind == PaletteKind::Dark ? entry.dark : entry.light;
}

} // namespace

void applyPalette(PaletteKind kind) {
  QPalette palette;
  for (const RoleColour& entry : roleColours)
    palette.setColor(entry.role, QColor::fromRgb(colourOf(entry, kind)));
  for (const RoleColour& entry : disabledColours)
    palette.setColor(QPalette::Disabled, entry.role, QColor::fromRgb(colourOf(entry, kind)));
  QApplication::setPalette(palette);
  QToolTip::setPalette(palette);
}

bool isDark(const QPalette& palette) {
  return palette.color(QPalette::Base).lightness() < palette.color(QPalette::Text).lightness();
}

InkColours inkColours(const QPalette& palette) {
  if (isDark(palette))
    return {{0xc6, 0x92, 0xe9}, {0x9c, 0xcc, 0x80}, {0xf0, 0xb0, 0x72}, {0x8e, 0x96, 0xa3},
            {0x7a, 0xb4, 0xf5}, {0xff, 0x8a, 0x80}, {0x8f, 0xd1, 0x8f}};
  return {{0x7a, 0x2a, 0x9e}, {0x2c, 0x6e, 0x1f}, {0xa0, 0x4a, 0x00}, {0x66, 0x6c, 0x76},
          {0x1c, 0x5f, 0xb0}, {0xb3, 0x1b, 0x1b}, {0x1f, 0x70, 0x33}};
}

QColor ruleColour(const QPalette& palette) {
  return palette.color(isDark(palette) ? QPalette::Light : QPalette::Mid);
}

QFont codeFont() {
  QFont font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
  if (!QFontInfo(font).fixedPitch())
    font.setFamily(QStringLiteral("monospace"));
  font.setStyleHint(QFont::Monospace);
  return font;
}
