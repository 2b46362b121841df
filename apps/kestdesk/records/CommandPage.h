// SPDX-License-Identifier: MIT
#pragma once

#include "RunRecord.h"

#include <QWidget>

class QPlainTextEdit;

/// Shows how a run was started: its command, environment and launch options.
class CommandPage : public QWidget
{
    Q_OBJECT

public:
    explicit CommandPage(QWidget* parent);

    void show(const RunRecord& record);

private:
    void copyCommand();

    QPlainTextEdit* m_text;
    QString m_command;
};
