// SPDX-License-Identifier: MIT
#pragma once

#include <common_settings.h>

#include <QPoint>
#include <QRandomGenerator>
#include <QRect>
#include <QSettings>
#include <QSize>
#include <QStringList>
#include <QVariant>
#include <QVector>

#include <limits>

/// Values of all kinds under keys of all kinds: the same ones for the same seed, whichever Qt this
/// is built with.
class VariousSettings : public common_settings
{
public:
    VariousSettings(const QString& file, quint32 seed)
        : common_settings(file, QStringLiteral("v\u00e4rious/;=%"), QSettings::IniFormat)
        , m_random(seed)
    {}

    /// What has been read: a line for each key.
    QStringList read;

protected:
    void restoreDefaults() override { read.clear(); }

    void doReadSettings(QSettings& settings) override
    {
        const QStringList keys = settings.allKeys();
        for (const QString& key : keys) {
            const QVariant value = settings.value(key);
            QString line = key + QLatin1Char(' ') + QLatin1String(value.typeName());
            const bool isList = value.userType() == QMetaType::QStringList;
            const QStringList texts = isList ? value.toStringList() : QStringList(value.toString());
            for (const QString& text : texts) {
                line += QLatin1Char(' ') + QLatin1String(text.toUtf8().toHex());
            }
            if (value.userType() == QMetaType::QByteArray) {
                line = key + QStringLiteral(" bytes ") + QLatin1String(value.toByteArray().toHex());
            }
            read.append(line);
        }
    }

    void doWriteSettings(QSettings& settings) override
    {
        int number = 0;
        const QVector<QVariant> values = kinds();
        for (const QVariant& value : values) {
            settings.setValue(QStringLiteral("kind%1").arg(++number), value);
        }
        for (int i = 0; i < randomCount; ++i) {
            const QString key = QString::number(i) + randomText(keyLetters()) + QLatin1Char('.');
            settings.setValue(key, randomText(valueLetters()));
            settings.setValue(key + QStringLiteral("bytes"), randomText(valueLetters()).toUtf8());
            settings.setValue(key + QStringLiteral("list"),
                              QStringList{randomText(valueLetters()), randomText(valueLetters())});
        }
    }

private:
    static constexpr int randomCount = 200;

    static QVector<QVariant> kinds()
    {
        return {42,
                qlonglong(1) << 62,
                true,
                0.1,
                1e300,
                std::numeric_limits<double>::quiet_NaN(),
                QVariant(),
                QString(),
                QStringLiteral("  a  "),
                QStringLiteral("@Variant(x)"),
                QStringLiteral("@"),
                QByteArray(),
                QByteArray("\0\xff\n\xe9"
                           "1@",
                           6),
                QStringList(),
                QStringList{QString()},
                QStringList{QStringLiteral("a;b"), QStringLiteral("c,d")},
                QRect(1, 2, 3, 4),
                QSize(5, 6),
                QPoint(7, 8)};
    }

    // Of one character each, or of the two halves of one.
    static QStringList keyLetters()
    {
        return QStringLiteral("a 1 Z % = ; [ ] \" \\ @ , \u00e9 \u6f22 \U0001f512")
                   .split(QLatin1Char(' ')) +
               QStringList{QStringLiteral(" ")};
    }

    static QStringList valueLetters()
    {
        return keyLetters() + QStringList{QStringLiteral("f"),      QStringLiteral("0"),
                                          QStringLiteral("\n"),     QStringLiteral("\r"),
                                          QStringLiteral("\x7f"),   QStringLiteral("\u0080"),
                                          QStringLiteral("\u00a0"), QStringLiteral("\u2028"),
                                          QStringLiteral("\ufeff"), QStringLiteral("\\x")};
    }

    QString randomText(const QStringList& letters)
    {
        constexpr int longest = 12;
        QString text;
        for (int left = m_random.bounded(longest); left > 0; --left) {
            text += letters.at(m_random.bounded(static_cast<int>(letters.size())));
        }
        return text;
    }

    QRandomGenerator m_random;
};
