// SPDX-License-Identifier: MIT
// A plugin for any program of Qt: serves a tester who works the program's windows from another
// process. In the folder that KEST_TEST_DESK names there is a socket with the program's name. A
// request is a line of JSON such as {"do": "read", "object": "modelEdit", "property": "text"}, and
// so is its answer, {"value": ...}, which has no value when no such widget is in sight.
//
//   read      the widget's property "property"
//   rows      the texts of a list or a table, row by row
//   curves    a chart's, each with its "colour" and its "points", pairs of x and y
//   click     true when there was something to click on
//   picture   true when the picture of the widget's window is written to "file"
//   close     true
#include <ChartNames.h>

#include <QAbstractItemView>
#include <QApplication>
#include <QChart>
#include <QChartView>
#include <QGenericPlugin>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLocalServer>
#include <QLocalSocket>
#include <QTest>
#include <QTimer>
#include <QXYSeries>

namespace {

QString text(const char* latin1)
{
    return QLatin1String(latin1);
}

QWidget* widgetOf(const QJsonObject& request)
{
    const QString name = request.value(text("object")).toString();
    const QWidgetList widgets = QApplication::allWidgets();
    for (QWidget* const widget : widgets) {
        if (widget->objectName() == name && widget->isVisible()) {
            return widget;
        }
    }
    return nullptr;
}

QJsonValue rowsOf(const QWidget* widget)
{
    const auto* const view = qobject_cast<const QAbstractItemView*>(widget);
    QJsonArray rows;
    for (int row = 0; view != nullptr && row < view->model()->rowCount(); ++row) {
        QJsonArray cells;
        for (int column = 0; column < view->model()->columnCount(); ++column) {
            cells.append(view->model()->index(row, column).data().toString());
        }
        rows.append(cells);
    }
    return rows;
}

QJsonValue curvesOf(const QWidget* widget)
{
    const auto* const view = qobject_cast<const QChartView*>(widget);
    QJsonArray curves;
    if (view == nullptr) {
        return curves;
    }
    const QList<QAbstractSeries*> shown = view->chart()->series();
    for (const QAbstractSeries* const each : shown) {
        const auto* const series = qobject_cast<const QXYSeries*>(each);
        QJsonArray points;
        const QVector<QPointF> values = series != nullptr && series->isVisible()
                                            ? series->points().toVector()
                                            : QVector<QPointF>();
        for (const QPointF& point : values) {
            points.append(QJsonArray({point.x(), point.y()}));
        }
        curves.append(
            QJsonObject({{text("colour"), series == nullptr ? QString() : series->color().name()},
                         {text("points"), points}}));
    }
    return curves;
}

// After the answer: what it opens may not return for long.
QJsonValue click(QWidget* widget)
{
    const bool isPossible = widget->isEnabled() && QApplication::activeModalWidget() == nullptr;
    if (isPossible) {
        QTimer::singleShot(0, widget, [widget] { QTest::mouseClick(widget, Qt::LeftButton); });
    }
    return isPossible;
}

QJsonValue closeLater(QWidget* widget)
{
    QTimer::singleShot(0, widget, &QWidget::close);
    return true;
}

QJsonObject answer(const QJsonObject& request)
{
    QWidget* const widget = widgetOf(request);
    if (widget == nullptr) {
        return QJsonObject();
    }
    const QString deed = request.value(text("do")).toString();
    QJsonValue value;
    if (deed == text("read")) {
        const QByteArray property = request.value(text("property")).toString().toLatin1();
        value = QJsonValue::fromVariant(widget->property(property.constData()));
    } else if (deed == text("rows")) {
        value = rowsOf(widget);
    } else if (deed == text("curves")) {
        value = curvesOf(widget);
    } else if (deed == text("click")) {
        value = click(widget);
    } else if (deed == text("picture")) {
        value = widget->window()->grab().save(request.value(text("file")).toString());
    } else if (deed == text("close")) {
        value = closeLater(widget);
    }
    return QJsonObject({{text("value"), value}});
}

void serve(QLocalSocket& socket)
{
    while (socket.canReadLine()) {
        const QJsonObject request = QJsonDocument::fromJson(socket.readLine()).object();
        socket.write(QJsonDocument(answer(request)).toJson(QJsonDocument::Compact) + '\n');
    }
}

// Waits for the program to have its name, and for those who ask.
class Server : public QLocalServer
{
public:
    Server()
    {
        connect(this, &QLocalServer::newConnection, this, [this] { accept(); });
        QTimer::singleShot(0, this, [this] { open(); });
    }

private:
    void open()
    {
        const QString folder = qEnvironmentVariable("KEST_TEST_DESK");
        if (!listen(folder + QLatin1Char('/') + QCoreApplication::applicationName())) {
            qWarning("no tester can reach this program: %s", qPrintable(errorString()));
        }
    }

    void accept()
    {
        QLocalSocket* const socket = nextPendingConnection();
        connect(socket, &QLocalSocket::readyRead, socket, [socket] { serve(*socket); });
    }
};

} // namespace

class GuiTesterPlugin : public QGenericPlugin
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID QGenericPluginFactoryInterface_iid FILE "gui_tester.json")

public:
    QObject* create(const QString& /*name*/, const QString& /*arguments*/) override
    {
        return new Server;
    }
};

#include "gui_tester.moc"
