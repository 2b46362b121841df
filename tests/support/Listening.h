// SPDX-License-Identifier: MIT
#pragma once

#include <common_ObservableVia.h>
#include <common_ObserverOf.h>

#include <QStringList>

#include <functional>
#include <utility>

/// A small observer interface for the tests of the observer templates.
class IListener
{
public:
    IListener() = default;
    IListener(const IListener&) = default;
    IListener& operator=(const IListener&) = default;
    virtual ~IListener() = default;

    virtual void onChanged() = 0;
};

using Connection = common_ObserverConnection<IListener>;

/// An observable with everything open.
class Subject : public common_ObservableVia<IListener>
{
public:
    using common_ObservableVia::getObservers;

    void change() { notifyObserversOn(&IListener::onChanged); }
};

/// Notes its name in a common list when it is called, and does what a test wants.
class Listener : public common_ObserverOf<IListener>
{
public:
    explicit Listener(QString name, QStringList* calls, Subject* subject = nullptr)
        : common_ObserverOf(subject), m_name(std::move(name)), m_calls(calls)
    {}

    using common_ObserverOf::startObserving;
    using common_ObserverOf::stopObserving;

    void onChanged() override
    {
        m_calls->append(m_name);
        const auto callback = then; // may replace itself, or destroy this listener
        callback();
    }

    std::function<void()> then = [] {};

private:
    QString m_name;
    QStringList* m_calls;
};
