#pragma once

#include <QString>

/// A folder that comes with the host ("help", "samples", "docs"): beside the installed program,
/// else in the tree that it was built from.
QString hostDataDir(const QString& name);
