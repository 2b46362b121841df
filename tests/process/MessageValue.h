// SPDX-License-Identifier: MIT
#pragma once

#include <common_IProcessMessage.h>

#include <QtTest>

#include <type_traits>
#include <utility>

/// Checks that a message class is a value with a type and a text.
template <typename Message>
struct MessageValue
{
    static_assert(std::is_base_of<common_IProcessMessage, Message>::value, "for process runners");
    static_assert(std::is_copy_constructible<Message>::value, "a value");
    static_assert(std::is_copy_assignable<Message>::value, "a value");
    static_assert(std::is_move_constructible<Message>::value, "a value");
    static_assert(std::is_move_assignable<Message>::value, "a value");

    static void isEmptyOutputByDefault()
    {
        const Message message;
        QCOMPARE(message.getText(), QString());
        QCOMPARE(message.getType(), Message::Output);
    }

    static void copiesAndMovesBothFields()
    {
        const Message message(Message::Warning, QStringLiteral("hot"));
        Message copy(message);
        Message assigned;
        assigned = copy;
        const Message moved(std::move(copy));
        Message moveAssigned;
        moveAssigned = std::move(assigned);
        for (const Message* each : {&message, &moved, &std::as_const(moveAssigned)}) {
            QCOMPARE(each->getText(), QStringLiteral("hot"));
            QCOMPARE(each->getType(), Message::Warning);
        }
    }
};
