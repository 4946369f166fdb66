#include "Core/Digital/LogicInterfaces.h"

#include "Core/Frame/Integers.h"
#include "HostSupport/Numbers.h"
#include "HostSupport/Parsing.h"

#include <QHash>

#include <algorithm>

namespace {

enum Field { TechnologyName, Description, Unused, ModelType, Supply, PullUp, PullDown, Rest };

/// The place of a name among those seen, in any letter case; a new name gets the next place.
class NamePlaces {
public:
  int placeOf(const QString& name) {
    const QString key = name.toCaseFolded();
    const auto known = m_places.constFind(key);
    return known != m_places.cend() ? *known : *m_places.insert(key, m_places.size());
  }

private:
  QHash<QString, int> m_places;
};

void addInterface(int line, bool isDefault, bool isStandard, QVector<int>* lines,
                  int* defaultLine) {
  lines->append(line);
  if (isDefault || (*defaultLine < 0 && isStandard))
    *defaultLine = line;
}

bool isWord(const YString& text, const char* word) {
  return sp_CompareNoCase(text, word) == 0;
}

int lineOf(double number) {
  return number >= 0 ? truncatedToInt(number) : -1;
}

} // namespace

LogicInterfaces::LogicInterfaces(const Texts& lines, int input, int output) {
  NamePlaces technologies;
  NamePlaces resistive;
  YArray<YString> fields;
  for (int line = 0; line < static_cast<int>(lines.count()); ++line) {
    // One field more than are read, so that what follows is no part of the last.
    sp_SplitLine(lines.raw(static_cast<unsigned>(line)), ';', &fields, Rest + 1);
    const QString name = QString::fromUtf8(fields.value(TechnologyName));
    const YString model = fields.value(ModelType);
    const YString description = fields.value(Description);

    if (model == "dac_bridge" && fields.value(PullUp).isEmpty() &&
        fields.value(PullDown).isEmpty() &&
        resistive.placeOf(name) == m_resistiveTechnologies.size())
      m_resistiveTechnologies.append(name);

    const int place = technologies.placeOf(name);
    if (place == static_cast<int>(m_technologies.size()))
      m_technologies.push_back({name, {}, {}});
    m_technologyOfLine.append(place);
    m_descriptions.append(QString::fromUtf8(description));

    Technology& technology = m_technologies[static_cast<std::size_t>(place)];
    if (!fields.value(Supply).isEmpty())
      technology.supply = sp_ConvertEngToReal(fields.value(Supply));
    if (model == "adc_bridge" || model == "adc_schmitt")
      addInterface(line, line == input, isWord(description, "Standard input"), &technology.inputs,
                   &technology.defaultInput);
    else
      addInterface(line, line == output, isWord(description, "Standard output"),
                   &technology.outputs, &technology.defaultOutput);
  }
}

LogicInterfaces::Technology LogicInterfaces::technology(int index) const {
  const auto place = static_cast<std::size_t>(index);
  return index >= 0 && place < m_technologies.size() ? m_technologies[place] : Technology();
}

AnalogInterface analogInterface(const double* numbers, unsigned count) {
  AnalogInterface read;
  if (count <= AnalogInterface::Supply)
    return read;
  read.input = lineOf(numbers[AnalogInterface::Input]);
  read.output = lineOf(numbers[AnalogInterface::Output]);
  read.supply = numbers[AnalogInterface::Supply];
  if (count > AnalogInterface::Capacitance)
    read.capacitance = numbers[AnalogInterface::Capacitance];
  if (count > AnalogInterface::Resistance)
    read.resistance = numbers[AnalogInterface::Resistance];
  return read;
}

QString boldList(const QStringList& names) {
  constexpr int mostNames = 100;
  constexpr int longestName = 500; // characters
  const int shown = std::min(names.size(), mostNames);
  QString list;
  for (int i = 0; i < shown; ++i) {
    if (i > 0) // two blanks, as the sentence has always had them
      list += i < names.size() - 1 ? QStringLiteral(", ") : QStringLiteral(" and  ");
    list += QStringLiteral("<b>%1</b>").arg(names[i].left(longestName).toHtmlEscaped());
  }
  return shown < names.size() ? list + QChar(0x2026) : list;
}
