// SPDX-License-Identifier: MIT
#pragma once

#include <QJsonDocument>
#include <QJsonObject>
#include <QJsonValue>
#include <QLocalSocket>
#include <QtTest>

/// A running program that a tester works from outside, through the plugin in it.
class TestedProgram
{
public:
    explicit TestedProgram(QString socket) : m_socket(std::move(socket)) {}

    /// Waits until it can be reached.
    bool isReached(int limit)
    {
        return QTest::qWaitFor(
            [this] {
                if (m_connection.state() == QLocalSocket::UnconnectedState) {
                    m_connection.connectToServer(m_socket);
                }
                return m_connection.state() == QLocalSocket::ConnectedState;
            },
            limit);
    }

    /// The answer's value; undefined when nothing of that name is in sight.
    QJsonValue ask(const char* deed, const char* object, const char* key = "",
                   const QString& detail = QString())
    {
        const QJsonObject request{{QLatin1String("do"), QLatin1String(deed)},
                                  {QLatin1String("object"), QLatin1String(object)},
                                  {QLatin1String(key), detail}};
        m_connection.write(QJsonDocument(request).toJson(QJsonDocument::Compact) + '\n');
        const bool isAnswered =
            QTest::qWaitFor([this] { return m_connection.canReadLine(); }, answerLimit);
        return isAnswered ? QJsonDocument::fromJson(m_connection.readLine())
                                .object()
                                .value(QLatin1String("value"))
                          : QJsonValue(QJsonValue::Undefined);
    }

    QJsonValue property(const char* object, const char* name)
    {
        return ask("read", object, "property", QLatin1String(name));
    }

    /// Clicks on a control as soon as it is there and can be used.
    bool click(const char* object, int limit)
    {
        return QTest::qWaitFor([&] { return ask("click", object).toBool(); }, limit);
    }

private:
    static constexpr int answerLimit = 60000; // ms

    QString m_socket;
    QLocalSocket m_connection;
};
