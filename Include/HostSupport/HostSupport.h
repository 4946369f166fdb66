#pragma once

// All of the host's support library but the registry (host only).

#include "HostSupport/Arguments.h"
#include "HostSupport/Colours.h"
#include "HostSupport/CompressedData.h"
#include "HostSupport/Containers.h"
#include "HostSupport/DigitalSource.h"
#include "HostSupport/DomainServices.h"
#include "HostSupport/Files.h"
#include "HostSupport/KelvarinException.h"
#include "HostSupport/LaplaceExpression.h"
#include "HostSupport/Numbers.h"
#include "HostSupport/OptionValue.h"
#include "HostSupport/Options.h"
#include "HostSupport/Parsing.h"
#include "HostSupport/Registration.h"
#include "HostSupport/System.h"
#include "HostSupport/SystemTypes.h"
#include "HostSupport/YString.h"
