// SPDX-License-Identifier: MIT
#pragma once

#include <BoxAnswerer.h>
#include <DialogStage.h>

#include <QtTest>

inline constexpr int patience = 60000; // less than the child sleeps

inline QStringList words(const char* text)
{
    return QString::fromLatin1(text).split(QLatin1Char(' '));
}

inline BoxAnswerer::Answer yes()
{
    return BoxAnswerer::clicking(QStringLiteral("Yes"));
}

inline bool isGone(const QPointer<common_KestProcessDialog>& dialog)
{
    return QTest::qWaitFor([&dialog] { return dialog.isNull(); }, patience);
}

inline bool hasEnded(const DialogStage& stage)
{
    return QTest::qWaitFor([&stage] { return !stage.runner->isRunning(); }, patience);
}

inline bool hasLines(const DialogStage& stage, int count)
{
    return QTest::qWaitFor([&] { return stage.output()->document()->blockCount() >= count; },
                           patience);
}

/// Ways of a user to stop the process.
enum class Way { Stop, Close, Escape };

inline void go(Way way, const DialogStage& stage)
{
    switch (way) {
    case Way::Stop:
        stage.stop()->click();
        break;
    case Way::Close:
        stage.dialog->close();
        break;
    case Way::Escape:
        QTest::keyClick(stage.dialog, Qt::Key_Escape);
        break;
    }
}

Q_DECLARE_METATYPE(Way)
