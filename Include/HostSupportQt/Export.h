#pragma once

#include <QtGlobal>

#ifdef HOSTSUPPORTQT_BUILD
#define HOSTSUPPORTQT_EXPORT Q_DECL_EXPORT
#else
#define HOSTSUPPORTQT_EXPORT Q_DECL_IMPORT
#endif
