#pragma once

#include <kest_foundation_export.h>

#include <QMessageBox>
#include <QPointer>
#include <QString>
#include <QVector>

class QWidget;

/// A question to the user in a box of its own, with buttons to answer by.
///
/// Nobody is asked when the common_IApplication service says non-interactive, or when the
/// application has no windows at all: then title, text and details go to standard error, and the
/// answer is that of the Escape key. A run without a person must never wait for one.
class KEST_FOUNDATION_EXPORT common_UserQuery
{
public:
    enum MessageType { Error = 0, Warning = 1, Information = 2 };
    enum OptionDefaultType {
        NoDefault = 0,
        EnterDefault = 1, ///< the Enter key chooses it
        EscapeDefault = 2 ///< the Escape key, or closing the box, chooses it
    };

    /// The parent may be null. Details are folded away at first.
    common_UserQuery(const QString& title, const QString& text, MessageType type, QWidget* parent,
                     const QString& details);

    /// Adds a button. Without any there is one to agree.
    void addOption(const QString& label, QMessageBox::ButtonRole role,
                   OptionDefaultType defaultType = NoDefault, const QString& tooltip = QString());

    /// Asks and waits for the answer: the role (QMessageBox::ButtonRole) of the chosen button.
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
