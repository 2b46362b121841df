// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
#include <QTextCodec>
#endif

/// As long as it exists, Qt encodes what is local in Latin-1, where Qt can do that: Qt 6 cannot,
/// its names of files are UTF-8 in every locale.
class LatinLocale
{
public:
#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
    static constexpr bool isPossible = true;

    LatinLocale() : m_before(QTextCodec::codecForLocale())
    {
        QTextCodec::setCodecForLocale(QTextCodec::codecForName("ISO-8859-1"));
    }
    ~LatinLocale()
    {
        QTextCodec::setCodecForLocale(m_before);
    }
#else
    static constexpr bool isPossible = false;

    LatinLocale() = default;
    ~LatinLocale()
    {} // NOLINT(modernize-use-equals-default): objects are not unused
#endif
    LatinLocale(const LatinLocale&) = delete;
    LatinLocale& operator=(const LatinLocale&) = delete;

#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
private:
    QTextCodec* m_before;
#endif
};
