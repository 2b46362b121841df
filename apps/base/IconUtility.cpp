// SPDX-License-Identifier: MIT
#include "IconUtility.h"

#include "IconEngine.h"
#include "Pictures.h"

#include <QDebug>
#include <QGuiApplication>
#include <QIcon>

IconUtility::IconUtility()
{
    Pictures::load();
}

QIcon IconUtility::getIcon(const QString& name)
{
    if (qobject_cast<QGuiApplication*>(QCoreApplication::instance()) == nullptr) {
        return QIcon();
    }
    const SvgPicture picture = SvgPicture::read(Pictures::fileName(Pictures::directory(), name));
    if (!picture.isEmpty()) {
        return QIcon(new IconEngine(picture));
    }
    if (!m_missing.contains(name)) {
        m_missing.insert(name);
        qWarning("There is no icon \"%s\"", qPrintable(name));
    }
    return QIcon();
}
