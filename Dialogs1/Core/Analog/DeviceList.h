#pragma once

#include "Core/Frame/Texts.h"

#include <array>

/// Values from the low end on, and below the high end.
struct ValueRange {
  double low = -1e100;
  double high = 1e100;

  bool contains(double value) const { return value >= low && value < high; }
};

/// Reads "low-high" with numbers in engineering notation, "low-inf" without an upper limit. "all",
/// in any letter case, and an empty text mean every value; an end that is missing is 0.
ValueRange readRange(const YString& text);

/// The devices that a script offers, each a line "name;value;value;value;text" with numbers in
/// engineering notation. What is missing is empty or 0.
class DeviceList {
public:
  enum Field { Name, Value1, Value2, Value3, Note, fieldCount };
  using Values = std::array<double, 3>;
  using Ranges = std::array<ValueRange, 3>;

  DeviceList() = default;
  /// Lines that begin with the first character of `marker` are comments, empty lines where it has
  /// none. A view of the lines, which have to outlive this.
  DeviceList(const Texts& lines, const char* marker);

  /// The numbers of the lines whose values are all within their ranges, ascending.
  std::vector<int> within(const Ranges& ranges) const;
  /// The fields of a line as they are shown.
  QStringList fields(int line) const;

private:
  struct Device {
    int line;
    Values values;
  };

  Texts m_lines;
  std::vector<Device> m_devices;
};
