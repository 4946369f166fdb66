#pragma once

#include "HostSupport/YString.h"
#include "HostSupportQt/Export.h"

// A help page has a topic key and a number. Modules ask for a number and show a page by it; the
// host supplies the window.

HOSTSUPPORTQT_EXPORT bool sp_HasHelp();
/// The number of a topic key, in any letter case; -1 if there is no such page.
HOSTSUPPORTQT_EXPORT int sp_GetHelpContextId(const YString& topic);
/// Shows the page of a topic key, or of a number in decimal.
HOSTSUPPORTQT_EXPORT void sp_RunHelp(const char* id, const char*);
HOSTSUPPORTQT_EXPORT void sp_RunHelpContext(int number);

/// What was asked for: the topic's key where the number is known (else null), the number (-1 where
/// the key is unknown), and the page's file (empty where there is none).
struct HelpRequest {
  YString asked; ///< as the caller gave it
  YString topic;
  int number = -1;
  YString page;
};
using HelpViewer = void (*)(const HelpRequest&);
/// Who shows the pages; null for nobody.
HOSTSUPPORTQT_EXPORT void sp_SetHelpViewer(HelpViewer viewer);
/// The folder of the pages, one "TOPIC.md" per topic and an index "topics.txt" of lines
/// "number topic page"; false where it has no index.
HOSTSUPPORTQT_EXPORT bool sp_SetHelpDir(const YString& path);
