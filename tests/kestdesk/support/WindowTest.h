// SPDX-License-Identifier: MIT
#pragma once

#include "WindowStage.h"

#include <QTabWidget>
#include <QTextEdit>

/// What tests of kestdesk's window share: a window for each function, after which nothing of its
/// runs may be left.
class WindowTest : public QObject
{
protected:
    static constexpr int longTime = 60000; // ms, on a machine with much to do

    std::unique_ptr<WindowStage> m_stage;

    void setUp()
    {
        m_stage.reset(); // a failed test left it
        m_stage = std::make_unique<WindowStage>();
        m_stage->open();
    }

    void tearDown()
    {
        m_stage->close();
        QTRY_COMPARE_WITH_TIMEOUT(m_stage->desk().processes(), QStringList(), longTime / 2);
        QCOMPARE(temporaryFiles().join(QLatin1Char(' ')), QString());
        m_stage.reset();
    }

    void startWaitingRun(const QByteArray& word = "wait", const char* name = "m.nec") const
    {
        const int row = m_stage->runCount();
        m_stage->run(m_stage->model(name, word));
        QTRY_COMPARE_WITH_TIMEOUT(m_stage->state(row), text("running"), longTime);
        const common_KestProcessDialog* const dialog = m_stage->dialogs().constLast();
        auto* const output = qobject_cast<QTextEdit*>(dialog->findChild<QTabWidget*>()->widget(0));
        QTRY_VERIFY_WITH_TIMEOUT(output->toPlainText().contains(text("up")), longTime);
    }

    QStringList temporaryFiles() const
    {
        return QDir(m_stage->desk().path("user"))
            .entryList({text("gui_tmp_machfile*"), text(".gui_tmp_machfile*")},
                       QDir::AllEntries | QDir::Hidden);
    }

    static QStringList textsOf(const QList<QAction*>& actions)
    {
        QStringList result;
        for (const QAction* const action : actions) {
            result.append(action->text());
        }
        return result;
    }

    QStringList recentTexts() const
    {
        auto* const menu = m_stage->find<QMenu>("recentMenu");
        Q_EMIT menu->aboutToShow();
        return textsOf(menu->actions());
    }
};
