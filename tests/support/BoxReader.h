// SPDX-License-Identifier: MIT
#pragma once

#include <QApplication>
#include <QMessageBox>
#include <QTimer>
#include <QVector>
#include <QtTest>

#include <functional>
#include <utility>

/// Reads every message box while it lives, and closes it.
class BoxReader
{
public:
    struct Box
    {
        QString title;
        QString text;
        QString details;
        QMessageBox::Icon icon;
        QWidget* parent;
    };

    BoxReader()
    {
        QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this] { look(); });
        m_timer.start(2);
    }

    /// What was shown since the last call.
    QVector<Box> take()
    {
        QTest::qWait(10); // for one box too many
        QVector<Box> taken;
        taken.swap(m_boxes);
        return taken;
    }

    /// Is called while a box is shown.
    void setListener(std::function<void()> listener) { m_listener = std::move(listener); }

private:
    void look()
    {
        auto* const box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        if (box) {
            if (m_listener) {
                m_listener();
            }
            m_boxes.append({box->windowTitle(), box->text(), box->detailedText(), box->icon(),
                            box->parentWidget()});
            box->close();
        }
    }

    QVector<Box> m_boxes;
    std::function<void()> m_listener;
    QTimer m_timer;
};

/// Sets an environment variable, or unsets it, and puts it back at its end.
class Variable
{
public:
    explicit Variable(const char* name)
        : m_name(name), m_old(qgetenv(name)), m_wasSet(qEnvironmentVariableIsSet(name))
    {
        qunsetenv(name);
    }

    Variable(const char* name, const QString& value) : Variable(name)
    {
        qputenv(name, value.toLocal8Bit());
    }

    Variable(const Variable&) = delete;
    Variable& operator=(const Variable&) = delete;

    ~Variable()
    {
        if (m_wasSet) {
            qputenv(m_name, m_old);
        } else {
            qunsetenv(m_name);
        }
    }

private:
    const char* m_name;
    QByteArray m_old;
    bool m_wasSet;
};
