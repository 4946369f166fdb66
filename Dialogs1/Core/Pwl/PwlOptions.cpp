#include "Core/Pwl/PwlOptions.h"

#include <algorithm>
#include <limits>

using InitialCondition = PwlOptions::InitialCondition;

namespace {

enum Option : unsigned {
  Title,
  XHeading,
  YHeading,
  InitialConditionKind,
  HelpContext,
  LeastPoints,
  MostPoints,
  OffersSymmetric,
  OffersRepeat
};
/// A script that calls for a component with several levels passes exactly so many.
constexpr unsigned multiLevelCount = OffersSymmetric + 1;

constexpr Words<InitialCondition> initialConditions = {
    {"segment", InitialCondition::Segment}, {"continuous", InitialCondition::Continuous}};

std::optional<QString> passed(const Texts& texts, Option option) {
  return texts.has(option) ? std::make_optional(texts.text(option)) : std::nullopt;
}

EnergyStorage converterOf(const QString& title) {
  const auto has = [&title](const char* words) {
    return title.contains(QLatin1String(words), Qt::CaseInsensitive);
  };
  if (has("Define PWL Inductor"))
    return EnergyStorage::Inductor;
  return has("Define PWL Capacitor") ? EnergyStorage::Capacitor : EnergyStorage::None;
}

} // namespace

PwlOptions readPwlOptions(const Texts& texts) {
  PwlOptions options;
  options.title = passed(texts, Title);
  options.xHeading = passed(texts, XHeading);
  options.yHeading = passed(texts, YHeading);
  if (texts.has(HelpContext))
    options.helpContext = texts.number(HelpContext);
  options.helpContextText = texts.text(HelpContext);
  options.leastPoints = std::max(texts.number(LeastPoints), 1);
  const int most = std::min(texts.number(MostPoints), std::numeric_limits<int>::max() - 1) + 1;
  if (most > options.leastPoints)
    options.mostRows = most;
  options.offersSymmetric = texts.number(OffersSymmetric) != 0;
  options.offersRepeat = texts.number(OffersRepeat) != 0;
  if (!options.offersRepeat)
    options.initialCondition =
        initialConditions.read(texts.raw(InitialConditionKind), InitialCondition::None);
  options.isMultiLevel = texts.count() == multiLevelCount;
  options.converter = converterOf(texts.text(Title));
  return options;
}
