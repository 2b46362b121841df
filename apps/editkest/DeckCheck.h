// SPDX-License-Identifier: MIT
#pragma once

#include <Finding.h>

#include <QByteArray>
#include <QFutureWatcher>
#include <QObject>
#include <QTimer>

/// Checks a deck as prekest does, while it is being typed: in the background, a moment after the
/// last change.
class DeckCheck : public QObject
{
    Q_OBJECT

public:
    explicit DeckCheck(QObject* parent);
    ~DeckCheck() override;

    /// Asks for a check of these bytes; earlier ones that wait are forgotten.
    void request(const QByteArray& deck);

Q_SIGNALS:
    /// What was found in the deck of the last request.
    void checked(const QVector<suite::Finding>& findings);

private:
    void start();
    void tell();

    QByteArray m_deck;
    QTimer m_quiet;
    QFutureWatcher<QVector<suite::Finding>> m_watcher;
    bool m_isOutdated = false;
};
