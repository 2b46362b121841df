// SPDX-License-Identifier: MIT
#pragma once

#include "ProblemCures.h"
#include "RunRecord.h"

#include <QWidget>

class QLabel;
class QPushButton;

/// A problem of a run in a line, and the button that mends it.
class CureBar : public QWidget
{
    Q_OBJECT

public:
    /// The names are those of the label and of the button, for testers.
    CureBar(const char* labelName, const char* buttonName, QWidget* parent);

    /// Shows the problem where something can be done about it, and nothing otherwise.
    void setProblem(const QString& message, const RunRecord& record);

    /// Shows a sentence alone.
    void setText(const QString& text);

    bool hasCure() const { return m_cure != nullptr; }

    /// As if the button was pressed; nothing without a cure.
    void use();

Q_SIGNALS:
    /// The user wants the problem to be mended; the message names what about.
    void cureRequested(const ProblemCures::Cure& cure, const QString& message,
                       const RunRecord& record);

private:
    QLabel* m_label;
    QPushButton* m_button;
    const ProblemCures::Cure* m_cure = nullptr;
    QString m_message;
    RunRecord m_record;
};
