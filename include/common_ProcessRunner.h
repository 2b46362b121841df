// SPDX-License-Identifier: MIT
#pragma once

#include <common_GenericProcessMessage.h>
#include <common_KestProcessMessage.h>
#include <common_ProcessRunnerBase.h>
#include <kest_common_export.h>

#include <QVector>

#include <type_traits>

/// A process runner whose observers receive the child's lines as messages of the class TMessage.
///
/// TMessage derives from common_IProcessMessage and has the static operations
/// QVector<TMessage> parseOutput(const QString& line) and parseError(const QString& line).
/// Use common_KestProcessMessage for solver components. For other programs write a class of your
/// own, or use common_GenericProcessMessage, whose texts lose the characters that are not ASCII.
template <typename TMessage>
class common_ProcessRunner : public common_ProcessRunnerBase
{
    static_assert(std::is_base_of<common_IProcessMessage, TMessage>::value,
                  "TMessage must be a common_IProcessMessage");

public:
    common_ProcessRunner() = default;

    /// Asserts, as the base does: runners are not copied.
    common_ProcessRunner(const common_ProcessRunner& other) = default;
    common_ProcessRunner& operator=(const common_ProcessRunner& other) = default;

    ~common_ProcessRunner() override = default;

protected:
    void onOutputRecieved(const QString& line) override;
    void onErrorRecieved(const QString& line) override;

private:
    void notifyMessages(const QVector<TMessage>& messages);
};

// Not within the class: mingw-w64 does not export what is defined there.
template <typename TMessage>
void common_ProcessRunner<TMessage>::onOutputRecieved(const QString& line)
{
    notifyMessages(TMessage::parseOutput(line));
}

template <typename TMessage>
void common_ProcessRunner<TMessage>::onErrorRecieved(const QString& line)
{
    notifyMessages(TMessage::parseError(line));
}

template <typename TMessage>
void common_ProcessRunner<TMessage>::notifyMessages(const QVector<TMessage>& messages)
{
    for (const TMessage& message : messages) {
        notifyProcessMessageReceived(message);
    }
}

extern template class KEST_COMMON_EXPORT common_ProcessRunner<common_GenericProcessMessage>;
extern template class KEST_COMMON_EXPORT common_ProcessRunner<common_KestProcessMessage>;
