#pragma once

#include "HostSupport/YString.h"

/// Where options and settings live: the platform's usual place, unless another has been told.
YString settingsFolder();
void setSettingsFolder(const YString& path);
