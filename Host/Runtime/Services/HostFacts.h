#pragma once

#include "HostSupportQt/Help.h"

#include <QStringList>
#include <QVariant>

/// What the host tells of the machine and of itself: "memory" and "cores" as numbers, "version" as
/// a list of two, "caseSensitiveFiles" and "hasHelp" as booleans. Raises `CallError` for another
/// key, naming these.
QVariant hostFact(const QString& key);

/// Tells something else from now on; an invalid value brings the machine's own back. Raises
/// `CallError` for an unknown key or a value of another kind.
void setHostFact(const QString& key, const QVariant& value);

/// Records from now on what help is asked for.
void recordHelpRequests();
/// Who shows the pages, besides; null for nobody. A host with a help window sets it here rather
/// than by `sp_SetHelpViewer`, which would end the record.
void setHelpWindow(HelpViewer viewer);

/// What was asked for since the start: a topic's key where the caller gave a topic, else the
/// number.
QStringList helpRequests();
