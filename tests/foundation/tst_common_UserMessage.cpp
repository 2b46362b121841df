// SPDX-License-Identifier: MIT
#include <ChildRun.h>

#include <common_UserMessage.h>

#include <QtTest>

class tst_common_UserMessage : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void keepsWhatItWasMadeOf_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<int>("type");
        QTest::addColumn<int>("format");
        // clang-format off
        QTest::newRow("information") << QStringLiteral("text")     << 0 << 0;
        QTest::newRow("warning")     << QStringLiteral("a\nb %1")  << 1 << 0;
        QTest::newRow("error")       << QStringLiteral("<b>x</b>") << 2 << 1;
        QTest::newRow("empty")       << QString()                  << 1 << 1;
        // clang-format on
    }

    void keepsWhatItWasMadeOf()
    {
        QFETCH(QString, text);
        QFETCH(int, type);
        QFETCH(int, format);
        const auto message = common_UserMessage::create(text, QStringLiteral("17331"),
                                                        common_UserMessage::MessageType(type),
                                                        common_UserMessage::MessageFormat(format));
        QCOMPARE(message->text(), text);
        QCOMPARE(message->code(), QStringLiteral("17331"));
        QCOMPARE(int(message->type()), type);
        QCOMPARE(int(message->format()), format);
    }

    void namesTheTypesAndFormats()
    {
        QCOMPARE(int(common_UserMessage::Information), 0);
        QCOMPARE(int(common_UserMessage::Warning), 1);
        QCOMPARE(int(common_UserMessage::Error), 2);
        QCOMPARE(int(common_UserMessage::PlainText), 0);
        QCOMPARE(int(common_UserMessage::RichText), 1);
    }

    void isCounted()
    {
        auto message = common_UserMessage::create(QString(), QString(), common_UserMessage::Error,
                                                  common_UserMessage::PlainText);
        QCOMPARE(message->getRefCount(), 1);
        {
            // NOLINTNEXTLINE(performance-unnecessary-copy-initialization): copies are counted
            const auto second = message;
            QCOMPARE(message->getRefCount(), 2);
        }
        QCOMPARE(message->getRefCount(), 1);
    }

    void endsTheProcessWhenReleasedTooOften()
    {
        const ChildRun child(QStringLiteral("release"));
        QVERIFY(child.hasCrashed());
        QVERIFY2(child.error().endsWith(QStringLiteral("): Assertion failed: m_refCount > 0\n")),
                 qPrintable(child.error()));
    }
};

int main(int argc, char* argv[])
{
    const QCoreApplication application(argc, argv);
    if (!ChildRun::taskOfThisRun().isEmpty()) {
        const auto message = common_UserMessage::create(
            QString(), QString(), common_UserMessage::Error, common_UserMessage::PlainText);
        message->dereference();
        message->dereference();
        return 0;
    }
    tst_common_UserMessage test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_common_UserMessage.moc"
