// SPDX-License-Identifier: MIT
#pragma once

#include <FakeServices.h>

#include <common_IIconUtility.h>
#include <common_IPixmapUtility.h>

#include <QIcon>
#include <QMap>
#include <QPixmap>

/// Every icon and every picture has a colour of its own, so that they can be told apart.
namespace Picture {

inline QColor colour(const QString& name)
{
    return QColor::fromHsv(static_cast<int>(qHash(name, 0) % 360), 200, 200);
}

inline QPixmap pixmap(const QString& name)
{
    QPixmap result(16, 16);
    result.fill(colour(name));
    return result;
}

} // namespace Picture

class FakeIconUtility : public OfferedService<common_IIconUtility>
{
public:
    QIcon getIcon(const QString& name) override
    {
        asked.append(name);
        return isEmpty ? QIcon() : QIcon(Picture::pixmap(name));
    }

    bool isEmpty = false; ///< no icon theme at all
    QStringList asked;
};

class FakePixmapUtility : public OfferedService<common_IPixmapUtility>
{
public:
    bool getPixmap(QPixmap& out, const QString& directory, const QString& name) override
    {
        asked.append(directory + QLatin1Char('/') + name);
        if (name == missing) {
            return false;
        }
        out = Picture::pixmap(name);
        return true;
    }

    QString missing;
    QStringList asked;
};
