#pragma once

#include <QtGlobal>

#ifdef HOSTSUPPORT_BUILD
#define HOSTSUPPORT_EXPORT Q_DECL_EXPORT
#else
#define HOSTSUPPORT_EXPORT Q_DECL_IMPORT
#endif
