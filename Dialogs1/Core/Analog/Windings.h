#pragma once

#include <array>
#include <vector>

/// The windings of a transformer by their rows, primaries first. Turns of reversed polarity are
/// negative; a winding that is taken away has its turns again when it comes back.
class Windings {
public:
  static constexpr int most = 20; ///< of either kind

  Windings(); ///< one primary; each winding has one turn

  int primaries() const { return m_primaries; }
  int secondaries() const { return m_secondaries; }
  int count() const { return m_primaries + m_secondaries; }
  /// At least one primary, and no more than `most` of either kind.
  void setCounts(int primaries, int secondaries);

  double turns(int row) const;
  void setTurns(int row, double turns); ///< NaN is ignored
  double firstTurns() const { return m_primaryTurns[0]; }

  // As a script gives them; what is missing or NaN stays.
  void setPrimaryTurns(const double* turns, unsigned count);
  void setSecondaryTurns(const double* turns, unsigned count);
  /// Ratios to `reference` turns: those of `primaries` primaries, then of `secondaries`
  /// secondaries, together no more than `most`.
  void setRatios(const double* ratios, unsigned count, double reference, int primaries,
                 int secondaries);

  std::vector<double> allTurns() const;
  /// The turns by those of the first primary; the turns themselves where that has none.
  std::vector<double> ratios() const;

private:
  using Turns = std::array<double, most>;
  double& place(int row);

  int m_primaries = 1;
  int m_secondaries = 0;
  Turns m_primaryTurns;
  Turns m_secondaryTurns;
};

/// What a winding of one turn would have, where one of `turns` has `inductance`; 0 without turns.
double inductancePerTurnSquared(double inductance, double turns);
/// Inductance of a winding by what one of one turn has.
double windingInductance(double perTurnSquared, double turns);
