// SPDX-License-Identifier: MIT
#pragma once

#include <kest_foundation_export.h>

#include <QMessageBox>
#include <QPointer>
#include <QString>
#include <QVector>

class QWidget;

/// A modal box that asks the user a question, with a button for each answer.
///
/// When the common_IApplication service says non-interactive, or the application has no
/// QApplication, no box is shown: title, text and details go to standard error, and the answer is
/// that of the Escape key. So a run without a user never waits for an answer.
class KEST_FOUNDATION_EXPORT common_UserQuery
{
public:
    /// The icon of the box. The numbers are fixed.
    enum MessageType { Error = 0, Warning = 1, Information = 2 };
    /// Which key chooses a button. The numbers are fixed.
    enum OptionDefaultType {
        NoDefault = 0,
        EnterDefault = 1, ///< the Enter key chooses it
        EscapeDefault = 2 ///< the Escape key, or closing the box, chooses it
    };

    /// The parent may be null. The details are hidden until the user asks for them.
    common_UserQuery(const QString& title, const QString& text, MessageType type, QWidget* parent,
                     const QString& details);

    /// Adds a button. Without any, the box has an OK button.
    void addOption(const QString& label, QMessageBox::ButtonRole role,
                   OptionDefaultType defaultType = NoDefault, const QString& tooltip = QString());

    /// Shows the box and waits for the answer. Returns the role (QMessageBox::ButtonRole) of the
    /// chosen button.
    int display();

private:
    struct Option
    {
        QString label;
        QMessageBox::ButtonRole role;
        OptionDefaultType defaultType;
        QString tooltip;
    };

    void print() const;
    int escapeAnswer() const;

    QString m_title;
    QString m_text;
    MessageType m_type;
    QPointer<QWidget> m_parent;
    QString m_details;
    QVector<Option> m_options;
};
