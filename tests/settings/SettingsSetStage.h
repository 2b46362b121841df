#pragma once

#include <SettingsFolders.h>

#include <common_CommonSettingsSet.h>

#include <QApplication>
#include <QMessageBox>
#include <QTimer>
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

/// Reads every message box, and closes it.
class BoxReader
{
public:
    BoxReader()
    {
        QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this] { look(); });
        m_timer.start(5);
    }

    int boxes = 0;
    QString title;
    QString text;
    QString details;
    QMessageBox::Icon icon = QMessageBox::NoIcon;
    bool hasParent = false;
    const FakeSplashScreen* splashScreen = nullptr;
    QStringList splashCalls; ///< of that one, before the box was closed

private:
    void look()
    {
        auto* const box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        if (box) {
            ++boxes;
            title = box->windowTitle();
            text = box->text();
            details = box->detailedText();
            icon = box->icon();
            hasParent = box->parentWidget() != nullptr;
            if (splashScreen) {
                splashCalls = splashScreen->calls;
            }
            box->close();
        }
    }

    QTimer m_timer;
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

/// Counts the boxes that a settings set shows.
class SettingsSetStage
{
protected:
    void setUp()
    {
        m_reader = std::make_unique<BoxReader>();
        m_expectedBoxes = 0;
    }

    void tearDown()
    {
        QTest::qWait(10); // for one box too many
        QCOMPARE(m_reader->boxes, m_expectedBoxes);
    }

    std::unique_ptr<BoxReader> m_reader;
    int m_expectedBoxes = 0;
};
