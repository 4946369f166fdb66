#include "Call/ScriptVector.h"

#include <algorithm>
#include <cmath>

namespace {

bool sameReals(const std::vector<double>& a, const std::vector<double>& b) {
  const auto same = [](double x, double y) { return x == y || (std::isnan(x) && std::isnan(y)); };
  return std::equal(a.begin(), a.end(), b.begin(), b.end(), same);
}

} // namespace

std::size_t CallResult::count() const {
  switch (type) {
  case Type::None:
    break;
  case Type::Real:
    return reals.size();
  case Type::String:
    return strings.size();
  case Type::Int:
    return ints.size();
  case Type::Bool:
    return bools.size();
  }
  return 0;
}

bool CallResult::operator==(const CallResult& other) const {
  return type == other.type && sameReals(reals, other.reals) &&
         sameReals(references, other.references) && strings == other.strings &&
         ints == other.ints && bools == other.bools;
}

QString resultTypeName(CallResult::Type type) {
  switch (type) {
  case CallResult::Type::None:
    break;
  case CallResult::Type::Real:
    return QStringLiteral("real");
  case CallResult::Type::String:
    return QStringLiteral("string");
  case CallResult::Type::Int:
    return QStringLiteral("int");
  case CallResult::Type::Bool:
    return QStringLiteral("bool");
  }
  return QString();
}

ScriptVector asArgument(const CallResult& result) {
  ScriptVector vector;
  if (result.type == CallResult::Type::String)
    vector = ScriptVector::ofStrings(result.strings);
  else if (result.type == CallResult::Type::Int)
    vector.reals.assign(result.ints.begin(), result.ints.end());
  else if (result.type == CallResult::Type::Bool)
    vector.reals.assign(result.bools.begin(), result.bools.end());
  else
    vector.reals = result.reals;
  if (result.references.size() == vector.reals.size())
    vector.references = result.references;
  return vector;
}
