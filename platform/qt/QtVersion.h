// SPDX-License-Identifier: MIT
#pragma once

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QString>
#include <QTextStream>

#include <array>

/// What the two supported versions of Qt do not offer under one name. Everything else is written in
/// terms that both know.
namespace QtVersion {

/// A weight of the scale from 0 to 99 (Qt 5's, where 50 is normal and 75 bold) as the number that
/// QFont expects: the nearest named weight where the scale goes to 1000.
constexpr int fontWeight(int weight)
{
#if QT_VERSION >= QT_VERSION_CHECK(6, 0, 0)
    constexpr std::array<int, 9> named = {0, 12, 25, 50, 57, 63, 75, 81, 87}; // 100, 200, to 900
    int nearest = 0;
    for (int i = 1; i < static_cast<int>(named.size()); ++i) {
        const int distance = weight < named[i] ? named[i] - weight : weight - named[i];
        const int least =
            weight < named[nearest] ? named[nearest] - weight : weight - named[nearest];
        nearest = distance < least ? i : nearest;
    }
    return 100 * (nearest + 1);
#else
    return weight;
#endif
}

/// Whether QSettings takes bytes beyond ASCII in a file for UTF-8, instead of Latin-1.
constexpr bool readsSettingsAsUtf8 = QT_VERSION >= QT_VERSION_CHECK(6, 0, 0);

/// Whether a comment in rich text begins with "<!--" as in HTML, instead of "<!-" and any two
/// characters.
constexpr bool readsCommentsAsHtml = QT_VERSION >= QT_VERSION_CHECK(6, 0, 0);

/// Makes the stream read and write UTF-8 in every locale.
inline void setUtf8(QTextStream& stream)
{
#if QT_VERSION >= QT_VERSION_CHECK(6, 0, 0)
    stream.setEncoding(QStringConverter::Utf8);
#else
    stream.setCodec("UTF-8");
#endif
}

/// Has windows and pictures drawn in the pixels of the screen. To be called before the application
/// object is made. Qt 6 always does so.
inline void useAllPixels()
{
#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
    QCoreApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
    QCoreApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
#endif
}

/// The folder of the translations of Qt's own texts.
inline QString translationsFolder()
{
#if QT_VERSION >= QT_VERSION_CHECK(6, 0, 0)
    return QLibraryInfo::path(QLibraryInfo::TranslationsPath);
#else
    return QLibraryInfo::location(QLibraryInfo::TranslationsPath);
#endif
}

} // namespace QtVersion
