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

    /// The texts of the boxes that came up.
    QStringList texts;

private:
    void look()
    {
        auto* const box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        if (box && !box->property("answered").toBool()) {
            box->setProperty("answered", true);
            texts.append(box->text());
            m_answer(*box);
        }
    }

    Answer m_answer;
    QTimer m_timer;
};
