#pragma once

#include <QString>

/// A number that an engineer has typed as the simulator reads it: "10k" of "10 k", "4.7k" of "4k7",
/// "5" of "5 A". A number that the simulator reads as it stands, and any other text, comes back as
/// it is.
QString readableNumber(const QString& text);
