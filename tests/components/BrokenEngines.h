// SPDX-License-Identifier: MIT
#pragma once

#include <Text.h>

#include <QtTest>

/// Rows of the parts of the fake engine that are none of a good one ("part"), and of what is said
/// of them ("reason").
inline void addBrokenEngines(const QString& failure = text("the engine ended with code 3"))
{
    QTest::addColumn<QString>("part");
    QTest::addColumn<QString>("reason");
    QTest::newRow("crash") << text("crash") << text("the engine crashed");
    QTest::newRow("fail") << text("fail") << failure;
    QTest::newRow("garbage") << text("garbage") << text("no input impedance");
    QTest::newRow("silent") << text("silent") << text("the engine wrote no output");
    QTest::newRow("not a number") << text("notnumber") << text("no input impedance");
}
