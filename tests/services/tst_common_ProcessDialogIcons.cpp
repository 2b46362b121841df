// SPDX-License-Identifier: MIT
#include <DialogStage.h>

#include <common_ProcessDialogIcons.h>

#include <QtTest>

#include <algorithm>

namespace {

QStringList distinct(QStringList names)
{
    names.removeDuplicates();
    std::sort(names.begin(), names.end());
    return names;
}

} // namespace

class tst_common_ProcessDialogIcons : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void areWhatTheDialogAsksFor()
    {
        const SettingsFolders folders;
        const FakeApplication application;
        const FakeIconUtility icons;
        const FakePixmapUtility pixmaps;
        const common_ActivePtr<TalkingRunner> runner(new TalkingRunner);
        const auto dialog = std::make_unique<common_KestProcessDialog>(runner, nullptr);
        for (const char* const total : {"100", "99"}) { // a valid run and one with a fault
            runner->setExecutable(QStringLiteral(KEST_TEST_CHILD));
            runner->setArguments(
                {QStringLiteral("out"),
                 QStringLiteral("-*-total-percentage-*- %1\\n").arg(QLatin1String(total))});
            QVERIFY(runner->runAndWaitForFinish());
        }
        QCOMPARE(distinct(icons.asked), distinct(common_ProcessDialogIcons::icons()));
        QStringList pictures;
        const QStringList names = common_ProcessDialogIcons::pictures();
        for (const QString& name : names) {
            pictures.append(QStringLiteral(":/rc/images/") + name);
        }
        QCOMPARE(distinct(pixmaps.asked), distinct(pictures));
    }
};

QTEST_MAIN(tst_common_ProcessDialogIcons)
#include "tst_common_ProcessDialogIcons.moc"
