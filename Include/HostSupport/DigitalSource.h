#pragma once

#include "HostSupport/Export.h"
#include "HostSupport/YString.h"

/// A logic state: 0 zero, 1 one, 2 unknown, driven with strength 0 strong, 1 resistive, 2 high
/// impedance, 3 undetermined.
struct Digital_t {
  int value;
  int strength;
};

constexpr int digitalStateCount = 12;

/// The state as one byte, the form that tables hold: 0 to 11.
constexpr unsigned char digitalCode(Digital_t state) {
  return static_cast<unsigned char>(state.value + 3 * state.strength);
}
constexpr Digital_t digitalState(unsigned char code) {
  return {code % 3, code / 3};
}

/// What a table of states is expected to hold.
struct Source_Table_Info_t {
  int columns; ///< outputs
  int points;  ///< rows, one for each time
};

/// The text of a digital source: a row on each line, its time first and then a state for every
/// output.
///
/// A time is from 0 on, with an engineering suffix or an exponent ("12.5n", "1.25e-8"), and later
/// than that of the row before. A state is two characters in any letter case: value 0, 1 or U, then
/// strength s, r, z or u ("0s", "Uz"). Blanks, tabs and commas separate, several of them as one.
/// Lines that start with a star are comments, as empty lines they count for nothing; a line ends
/// with LF, CR or both. Null counts as empty. Everything here is linear in the length of the text.
class HOSTSUPPORT_EXPORT DigitalSource {
public:
  /// The two characters of a state, which `ReadSource` reads as the same; what is out of range
  /// counts as unknown or undetermined. Static storage.
  static const char* GetStateString(Digital_t state);

  /// Outputs in the first row, 0 where there is none; the states are not looked at.
  static int GetNumColumns(const char* text);

  /// Rows of the text, whatever they hold.
  static int GetNumPoints(const char* text);

  /// Reads the whole text. `states` takes `info.points` rows of `info.columns` state codes each,
  /// `times` takes `info.points` times; one that is null is not filled, so that a text can be
  /// checked before there is room for it. Returns 0, or non-zero where the text is at fault or has
  /// another size than `info` says. `error` then says at which line and column, counted in
  /// characters from 1, and what was expected there; the arrays are filled up to that place.
  static int ReadSource(const char* text, unsigned char* states, double* times,
                        const Source_Table_Info_t& info, YString* error);
};
