// SPDX-License-Identifier: MIT
#pragma once

#include <QAbstractButton>
#include <QApplication>
#include <QMessageBox>
#include <QStringList>
#include <QTimer>

#include <functional>

/// Does something with every message box that comes up while it lives, once for each.
class BoxAnswerer
{
public:
    using Answer = std::function<void(QMessageBox& box)>;

    explicit BoxAnswerer(Answer answer) : m_answer(std::move(answer))
    {
        QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this] { look(); });
        m_timer.start(2);
    }

    /// Answers by the buttons with these texts, one box after the other, and by Escape when there
    /// are none left, or when the box has no such button.
    explicit BoxAnswerer(const QStringList& buttons = QStringList())
        : BoxAnswerer(pressingEach(buttons))
    {}

    /// Clicks the button with that text.
    static Answer clicking(const QString& text)
    {
        return [text](QMessageBox& box) {
            const QList<QAbstractButton*> buttons = box.buttons();
            for (QAbstractButton* const button : buttons) {
                if (button->text() == text) {
                    button->click();
                }
            }
        };
    }

    QStringList texts;   ///< of the boxes that came up
    QStringList details; ///< of the boxes that came up

private:
    static Answer pressingEach(QStringList texts)
    {
        return [texts](QMessageBox& box) mutable {
            const QString text = texts.isEmpty() ? QString() : texts.takeFirst();
            const QList<QAbstractButton*> buttons = box.buttons();
            for (QAbstractButton* const button : buttons) {
                if (!text.isEmpty() && button->text() == text) {
                    button->click();
                    return;
                }
            }
            box.reject();
        };
    }

    void look()
    {
        auto* const box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        if (box && !box->property("answered").toBool()) {
            box->setProperty("answered", true);
            texts.append(box->text());
            details.append(box->detailedText());
            m_answer(*box);
        }
    }

    Answer m_answer;
    QTimer m_timer;
};
