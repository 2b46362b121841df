// SPDX-License-Identifier: MIT
#pragma once

#include "Export.h"
#include "ResultView.h"

#include <QValueAxis>
#include <QtTest>

#include <memory>

inline const QByteArray header =
    QByteArrayLiteral("frequency_MHz,resistance_ohm,reactance_ohm,swr\n");

inline Result makeResult(const QString& name, const QByteArray& lines)
{
    Result result = Result::parse(header + lines);
    result.path = QStringLiteral("/models/") + name + QStringLiteral(".csv");
    return result;
}

inline QVector<Result> twoResults()
{
    return {makeResult(QStringLiteral("first"), "100,10,-50,5\n200,70,0,1.4\n300,90,60,2\n"),
            makeResult(QStringLiteral("second"), "150,20,-20,30\n250,80,20,1.5\n")};
}

/// A view of results that is shown.
class ResultViewStage
{
protected:
    void setUp()
    {
        m_view = std::make_unique<ResultView>();
        m_view->resize(800, 700);
        m_view->show();
        QVERIFY(QTest::qWaitForWindowExposed(m_view.get()));
        m_charts = m_view->findChildren<QuantityChart*>();
        QCOMPARE(m_charts.size(), suite::quantityCount);
    }

    QValueAxis* axisOf(int place, Qt::Orientation orientation) const
    {
        return qobject_cast<QValueAxis*>(m_charts.at(place)->chart()->axes(orientation).first());
    }

    std::unique_ptr<ResultView> m_view;
    QList<QuantityChart*> m_charts;
};
