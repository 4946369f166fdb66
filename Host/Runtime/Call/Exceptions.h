#pragma once

#include <QString>

/// The exception that is being handled, in words: the message of a `KelvarinException` or a
/// standard one, else what it is. To be called in a `catch`.
QString describeException();
