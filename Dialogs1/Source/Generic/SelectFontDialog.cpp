#include "Generic/SelectFontDialog.h"

#include "Frame/ScriptFunction.h"
#include "HostSupport/Arguments.h"
#include "HostSupportQt/HostSupportQt.h"

#include <QFontDatabase>
#include <QFontDialog>
#include <QFontInfo>

#include <algorithm>
#include <cstdlib>
#include <limits>

static int runSelectFontDialog(UserFunctionInterface* call) {
  YString initial;
  sp_GetScalarString(call, 0, &initial);
  if (const auto font = askForFont(nullptr, initial))
    setStringResult(call, writeFontSpec(*font));
  return 0;
}

static const ScriptFunction declaration("SelectFontDialog", 0, "SS", OptionalStringResult,
                                        runSelectFontDialog);

namespace {

constexpr int boldWeight = 75;
constexpr int normalWeight = 50;
constexpr int lightestBold = 58;
// The chooser draws a sample: a size from a script must not take all memory for it.
constexpr int largestShown = 1000;

bool isSlanted(const QFont& font) {
  return font.style() != QFont::StyleNormal; // oblique is italic, too
}

/// The chooser goes by the names of styles, which each family has its own of.
QString styleName(const QString& family, const FontSpec& spec) {
  const QFontDatabase fonts;
  const int weight = spec.isBold ? boldWeight : normalWeight;
  QString nearest;
  int leastDistance = std::numeric_limits<int>::max();
  for (const QString& style : fonts.styles(family)) {
    const QFont font = fonts.font(family, style, QFont().pointSize());
    const int distance = std::abs(font.weight() - weight);
    // Of "Bold" and "Condensed Bold" it is the plain one.
    const bool isNearer =
        distance < leastDistance || (distance == leastDistance && style.size() < nearest.size());
    if (isSlanted(font) == spec.isItalic && isNearer) {
      nearest = style;
      leastDistance = distance;
    }
  }
  return nearest;
}

QFont shownFont(const FontSpec& spec) {
  QFont font;
  if (!spec.family.isEmpty())
    font.setFamily(toQs(spec.family));
  if (spec.pointSize > 0)
    font.setPointSize(std::min(spec.pointSize, largestShown));
  font.setWeight(spec.isBold ? boldWeight : normalWeight);
  font.setItalic(spec.isItalic);
  // A family that is not on this computer stands for the one that is drawn in its place.
  if (!QFontDatabase().hasFamily(font.family()))
    font.setFamily(QFontInfo(font).family());
  font.setStyleName(styleName(font.family(), spec));
  font.setUnderline(spec.isUnderlined);
  font.setStrikeOut(spec.isStruckOut);
  return font;
}

} // namespace

std::optional<FontSpec> askForFont(QWidget* over, const YString& initial) {
  sp_NeedGuiThread("SelectFontDialog");
  const FontSpec before = readFontSpec(isFontSpec(initial) ? initial : sp_GetFontSpec(initial));
  bool isTaken = false;
  const QFont font = QFontDialog::getFont(&isTaken, shownFont(before), over);
  if (!isTaken)
    return std::nullopt;
  FontSpec chosen = before;
  chosen.pointSize = font.pointSize();
  chosen.isBold = font.weight() >= lightestBold;
  chosen.isItalic = isSlanted(font);
  chosen.isUnderlined = font.underline();
  chosen.isStruckOut = font.strikeOut();
  chosen.family = toYs(font.family());
  return chosen;
}
