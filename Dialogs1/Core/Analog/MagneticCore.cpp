#include "Core/Analog/MagneticCore.h"

#include "HostSupport/Numbers.h"
#include "HostSupport/Parsing.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstring>

namespace {

constexpr double permeabilityOfFreeSpace = 1.2566370614359173e-06;
constexpr int shownDigits = 6;

enum CoreField { CoreName, Area, Length, Permeability, Material, CoreFieldCount };
enum MaterialField { FluxDensity = 2 };

YArray<YString> fieldsOf(const char* line) {
  YArray<YString> fields;
  sp_SplitLine(line, ';', &fields, 0);
  return fields;
}

double plainNumber(const char* text) {
  text += std::strspn(text, " \t");
  if (*text == '+' && text[1] != '-')
    ++text;
  double value = 0;
  std::from_chars(text, text + std::strlen(text), value);
  return value;
}

} // namespace

double MagneticCore::inductancePerTurnSquared() const {
  return length > 0 ? area * permeabilityOfFreeSpace * permeability / length : 0;
}

std::optional<double> MagneticCore::currentAt(double fluxDensity, double turns) const {
  const double count = std::fabs(turns);
  if (!(permeability > 0) || !(count > 0))
    return std::nullopt;
  return length * fluxDensity / permeabilityOfFreeSpace / permeability / count;
}

std::optional<MagneticCore> readCore(const char* line) {
  const YArray<YString> fields = fieldsOf(line);
  if (fields.count() < CoreFieldCount)
    return std::nullopt;
  return MagneticCore{sp_ConvertEngToReal(fields[Area]), sp_ConvertEngToReal(fields[Length]),
                      sp_ConvertEngToReal(fields[Permeability]),
                      QString::fromUtf8(fields[Material])};
}

std::optional<double> saturationFluxDensity(const char* line) {
  const YArray<YString> fields = fieldsOf(line);
  if (fields.count() <= FluxDensity)
    return std::nullopt;
  return plainNumber(fields[FluxDensity].c_str());
}

QStringList firstFields(const Texts& lines) {
  QStringList names;
  for (unsigned i = 0; i < lines.count(); ++i) {
    const char* cursor = lines.raw(i);
    YString name;
    sp_GetToken(&cursor, &name, ";", nullptr, nullptr, false);
    names.append(QString::fromUtf8(name));
  }
  return names;
}

int indexOfName(const QStringList& names, const QString& name) {
  if (name.isNull())
    return -1;
  const auto found = std::find_if(names.cbegin(), names.cend(), [&](const QString& each) {
    return each.compare(name, Qt::CaseInsensitive) == 0;
  });
  return found == names.cend() ? -1 : int(found - names.cbegin());
}

QString quantityText(double value, const char* unit) {
  if (!std::isfinite(value))
    return QString();
  return QString::fromUtf8(sp_ConvertRealToJSEng(value, shownDigits)) + QLatin1String(unit);
}
