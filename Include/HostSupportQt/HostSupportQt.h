#pragma once

#include "HostSupportQt/Binding.h"
#include "HostSupportQt/Captions.h"
#include "HostSupportQt/Geometry.h"
#include "HostSupportQt/Graphics.h"
#include "HostSupportQt/GuiThread.h"
#include "HostSupportQt/Help.h"
#include "HostSupportQt/KV_FunctionDef.h"
#include "HostSupportQt/Paste.h"
#include "HostSupportQt/QtMessages.h"
#include "HostSupportQt/RichText.h"
#include "HostSupportQt/Text.h"
