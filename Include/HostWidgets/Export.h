#pragma once

#include <QtGlobal>

#ifdef HOSTWIDGETS_BUILD
#define HOSTWIDGETS_EXPORT Q_DECL_EXPORT
#else
#define HOSTWIDGETS_EXPORT Q_DECL_IMPORT
#endif
