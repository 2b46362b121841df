// SPDX-License-Identifier: MIT
#include "Pictures.h"

#include <QResource>

// Must be outside of every namespace.
static void loadImages()
{
    Q_INIT_RESOURCE(images);
}

void Pictures::load()
{
    loadImages();
}

QString Pictures::directory()
{
    return QStringLiteral(":/rc/images");
}

QString Pictures::fileName(const QString& directory, const QString& name)
{
    return directory + QLatin1Char('/') + name + QStringLiteral(".svg");
}
