#pragma once

#include <QLoggingCategory>

inline Q_LOGGING_CATEGORY(cafe, "cafe")
