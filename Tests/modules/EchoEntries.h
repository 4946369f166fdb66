#pragma once

#include "DynFunc.h"
#include "HostSupport/Containers.h"
#include "HostSupport/YString.h"

/// How many of the texts are not empty; 0 for null. The one entry that EchoModule serves.
inline constexpr DynEntry<int(const YArray<YString>* texts)> echo_CountTexts{
    "echo_CountTexts", "Tests/modules/EchoEntries", 8};
