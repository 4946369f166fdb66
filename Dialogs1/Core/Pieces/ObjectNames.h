#pragma once

#include "HostSupport/YString.h"

/// The object name of a box whose contents differ from call to call: the class's name and a number
/// from `text`, so that each text has a remembered geometry of its own.
YString hashedObjectName(const char* className, const YString& text);
