#include "Core/Analog/Windings.h"

#include <algorithm>
#include <cmath>

namespace {

void take(double* place, double turns) {
  if (!std::isnan(turns))
    *place = turns + 0.0; // none of reversed polarity are none
}

} // namespace

Windings::Windings() {
  m_primaryTurns.fill(1);
  m_secondaryTurns.fill(1);
}

void Windings::setCounts(int primaries, int secondaries) {
  m_primaries = std::clamp(primaries, 1, most);
  m_secondaries = std::clamp(secondaries, 0, most);
}

double& Windings::place(int row) {
  return row < m_primaries ? m_primaryTurns.at(std::size_t(row))
                           : m_secondaryTurns.at(std::size_t(row - m_primaries));
}

double Windings::turns(int row) const {
  return Windings(*this).place(row);
}

void Windings::setTurns(int row, double turns) {
  take(&place(row), turns);
}

void Windings::setPrimaryTurns(const double* turns, unsigned count) {
  for (unsigned i = 0; i < std::min<unsigned>(count, most); ++i)
    take(&m_primaryTurns[i], turns[i]);
}

void Windings::setSecondaryTurns(const double* turns, unsigned count) {
  for (unsigned i = 0; i < std::min<unsigned>(count, most); ++i)
    take(&m_secondaryTurns[i], turns[i]);
}

void Windings::setRatios(const double* ratios, unsigned count, double reference, int primaries,
                         int secondaries) {
  std::vector<double> turns(ratios, ratios + std::min<unsigned>(count, most));
  for (double& each : turns)
    each *= reference;
  const auto given = static_cast<int>(turns.size());
  const int first = std::clamp(primaries, 0, given);
  setPrimaryTurns(turns.data(), unsigned(first));
  setSecondaryTurns(turns.data() + first, unsigned(std::clamp(secondaries, 0, given - first)));
}

std::vector<double> Windings::allTurns() const {
  std::vector<double> all(m_primaryTurns.begin(), m_primaryTurns.begin() + m_primaries);
  all.insert(all.end(), m_secondaryTurns.begin(), m_secondaryTurns.begin() + m_secondaries);
  return all;
}

std::vector<double> Windings::ratios() const {
  std::vector<double> all = allTurns();
  const double reference = firstTurns() != 0 ? firstTurns() : 1;
  for (double& each : all)
    each = each / reference + 0.0;
  return all;
}

double inductancePerTurnSquared(double inductance, double turns) {
  const double count = std::fabs(turns);
  return count > 0 ? inductance / count / count : 0;
}

double windingInductance(double perTurnSquared, double turns) {
  return perTurnSquared * turns * turns;
}
