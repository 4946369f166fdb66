#pragma once

/// A number that was computed as one writes it: what the last digit of binary arithmetic adds is
/// not seen.
double asWritten(double value);
