#pragma once

#include <QtGlobal>

// Qt's graphics abstraction, whose header moved in Qt 6.6.
#if QT_VERSION >= QT_VERSION_CHECK(6, 6, 0)
#include <rhi/qrhi.h>
#else
#include <private/qrhi_p.h>
#endif
