#pragma once

#include <QtCore/qglobal.h>

#if defined(WEXEL_BUILDING_LIBRARY)
#define WEXEL_EXPORT Q_DECL_EXPORT
#else
#define WEXEL_EXPORT Q_DECL_IMPORT
#endif
