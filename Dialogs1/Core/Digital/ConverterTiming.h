#pragma once

/// A converter's conversion time, or its highest rate, beside `other`, which is the other of the
/// two: `present`, but the reciprocal of `other` where that is more. An `other` of 0 or less says
/// nothing.
double atLeastReciprocal(double present, double other);
