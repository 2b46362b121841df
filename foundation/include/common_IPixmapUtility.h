// SPDX-License-Identifier: MIT
#pragma once

#include <kest_foundation_export.h>

class QPixmap;
class QString;

/// The service that provides the suite's pictures.
class KEST_FOUNDATION_EXPORT common_IPixmapUtility
{
public:
    virtual ~common_IPixmapUtility();

    /// Loads the picture of that name in the directory. When there is none, returns false and
    /// leaves out unchanged.
    virtual bool getPixmap(QPixmap& out, const QString& directory, const QString& name) = 0;

protected:
    common_IPixmapUtility() = default;
    common_IPixmapUtility(const common_IPixmapUtility&) = default;
    common_IPixmapUtility& operator=(const common_IPixmapUtility&) = default;
};
