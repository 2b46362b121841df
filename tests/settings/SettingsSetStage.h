// SPDX-License-Identifier: MIT
#pragma once

#include <BoxReader.h>
#include <SettingsFolders.h>

#include <common_CommonSettingsSet.h>

#include <QApplication>
#include <QtTest>

#include <cstdio>
#include <memory>

using Set = common_CommonSettingsSet;

class PrintingSplashScreen : public FakeSplashScreen
{
public:
    void hide() override { std::fputs("hide\n", stderr); }
    void show() override { std::fputs("show\n", stderr); }
};

inline void doDeed(const QString& deed)
{
    const FakeApplication application(true);
    FakeApplicationInfo info(Child::folder());
    info.defaultSettings = Child::folder() + QStringLiteral("/installation");
    if (deed == QLatin1String("with splash screen")) {
        const PrintingSplashScreen splashScreen;
        const Set set(Child::folder(), QStringLiteral("PreKest"));
        std::fprintf(stderr, "%s\n", qUtf8Printable(set.getFullFilename()));
    } else {
        const Set set(Child::folder(), QStringLiteral("PreKest"));
        std::fprintf(stderr, "%s\n", qUtf8Printable(set.getFullFilename()));
    }
}

/// The path of a file as sets of settings name it: with the system's separator before the name.
inline QString asNamedBySets(QString path)
{
    return path.replace(path.lastIndexOf(QLatin1Char('/')), 1, QDir::separator());
}

/// Expects as many message boxes of a settings set as a test has taken.
class SettingsSetStage
{
protected:
    void setUp() { m_reader = std::make_unique<BoxReader>(); }
    void tearDown() { QVERIFY(m_reader->take().isEmpty()); }

    std::unique_ptr<BoxReader> m_reader;
};
