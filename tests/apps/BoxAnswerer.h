#pragma once

#include <QAbstractButton>
#include <QApplication>
#include <QMessageBox>
#include <QStringList>
#include <QTimer>

/// Answers every message box while it lives: by the buttons with these texts, one after the other,
/// and by Escape when there are none left, or when the box has no such button.
class BoxAnswerer
{
public:
    explicit BoxAnswerer(const QStringList& answers = QStringList()) : m_answers(answers)
    {
        QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this] { look(); });
        m_timer.start(2);
    }

    QStringList texts;   ///< of the boxes so far
    QStringList details; ///< of the boxes so far

private:
    void look()
    {
        auto* const box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        if (box == nullptr) {
            return;
        }
        texts.append(box->text());
        details.append(box->detailedText());
        const QString answer = m_answers.isEmpty() ? QString() : m_answers.takeFirst();
        const QList<QAbstractButton*> buttons = box->buttons();
        for (QAbstractButton* const button : buttons) {
            if (!answer.isEmpty() && button->text() == answer) {
                button->click();
                return;
            }
        }
        box->reject();
    }

    QStringList m_answers;
    QTimer m_timer;
};
