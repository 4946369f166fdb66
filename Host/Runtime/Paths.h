#pragma once

#include <QString>

/// A folder that comes with the host ("help", "samples", "docs"), found from where the program
/// stands.
QString hostDataDir(const QString& name);
