// SPDX-License-Identifier: MIT
#include <ChildRun.h>
#include <FakeServices.h>

#include <common_UserQuery.h>

#include <QApplication>
#include <QElapsedTimer>
#include <QMessageBox>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTimer>
#include <QtTest>

#include <algorithm>
#include <cstdio>
#include <functional>
#include <memory>

namespace {

using Query = common_UserQuery;

const QString title = QStringLiteral("The title");
const QString question = QStringLiteral("The text\nof two lines");
const QString details = QStringLiteral("The details");

Query query(Query::MessageType type = Query::Warning, const QString& detailedText = details)
{
    return Query(title, question, type, nullptr, detailedText);
}

Query queryWithOptions(const QString& detailedText = details)
{
    Query asked = query(Query::Warning, detailedText);
    asked.addOption(QStringLiteral("Go on"), QMessageBox::AcceptRole, Query::EnterDefault,
                    QStringLiteral("Goes on"));
    asked.addOption(QStringLiteral("Other"), QMessageBox::ActionRole);
    asked.addOption(QStringLiteral("Stop"), QMessageBox::DestructiveRole, Query::EscapeDefault,
                    QStringLiteral("Stops"));
    return asked;
}

QMessageBox* shownBox()
{
    return qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
}

QAbstractButton* buttonOf(const QMessageBox& box, const QString& text)
{
    const QList<QAbstractButton*> buttons = box.buttons();
    const auto found = std::find_if(buttons.cbegin(), buttons.cend(),
                                    [&text](QAbstractButton* b) { return b->text() == text; });
    return found == buttons.cend() ? nullptr : *found;
}

/// Answers the box that comes up while it lives: calls the function with it, and closes it if it
/// is still there then.
class Answer
{
public:
    explicit Answer(std::function<void(QMessageBox&)> answer) : m_answer(std::move(answer))
    {
        QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this] { tryToAnswer(); });
        m_timer.start(1);
    }

    bool hasBeenGiven() const { return m_isGiven; }

private:
    void tryToAnswer()
    {
        QMessageBox* const box = shownBox();
        if (!box || !box->isVisible()) {
            return;
        }
        m_timer.stop();
        m_isGiven = true;
        m_answer(*box);
        if (box->isVisible()) {
            box->done(0);
        }
    }

    std::function<void(QMessageBox&)> m_answer;
    QTimer m_timer;
    bool m_isGiven = false;
};

std::function<void(QMessageBox&)> click(const QString& button)
{
    return [button](QMessageBox& box) {
        if (QAbstractButton* const found = buttonOf(box, button)) {
            found->click();
        }
    };
}

std::function<void(QMessageBox&)> press(Qt::Key key)
{
    return [key](QMessageBox& box) { QTest::keyClick(&box, key); };
}

int doTask(const QString& task, int& argc, char** argv)
{
    std::unique_ptr<QCoreApplication> application;
    std::unique_ptr<FakeApplication> service;
    if (task == QLatin1String("no windows")) {
        application = std::make_unique<QCoreApplication>(argc, argv);
    } else if (task == QLatin1String("non-interactive")) {
        application = std::make_unique<QApplication>(argc, argv);
        service = std::make_unique<FakeApplication>(true);
        QTimer::singleShot(0, application.get(), [] { std::puts("a box was shown"); });
    } else if (task == QLatin1String("non-interactive, bare")) {
        service = std::make_unique<FakeApplication>(true);
        Query(title, QString(), Query::Error, nullptr, QString()).display();
    }
    std::printf("%d\n", queryWithOptions().display());
    return 0;
}

using Options = QVector<QPair<int, int>>; // role and default type

} // namespace

Q_DECLARE_METATYPE(Options)

class tst_common_UserQuery : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void showsTitleTextAndDetails()
    {
        const Answer answer([](QMessageBox& box) {
            QCOMPARE(box.windowTitle(), title);
            QCOMPARE(box.text(), question);
            QCOMPARE(box.detailedText(), details);
            QVERIFY(box.isModal());
            QCOMPARE(box.parentWidget(), nullptr);
        });
        query().display();
        QVERIFY(answer.hasBeenGiven());
    }

    void showsNoDetailsWhenThereAreNone()
    {
        const Answer answer([](QMessageBox& box) {
            QCOMPARE(box.detailedText(), QString());
            QCOMPARE(box.buttons().size(), 3);
        });
        queryWithOptions(QString()).display();
        QVERIFY(answer.hasBeenGiven());
    }

    void showsTheIconOfItsType_data()
    {
        QTest::addColumn<int>("type");
        QTest::addColumn<int>("icon");
        QTest::newRow("error") << 0 << int(QMessageBox::Critical);
        QTest::newRow("warning") << 1 << int(QMessageBox::Warning);
        QTest::newRow("information") << 2 << int(QMessageBox::Information);
    }

    void showsTheIconOfItsType()
    {
        QFETCH(int, type);
        QFETCH(int, icon);
        int shown = -1;
        const Answer answer([&shown](QMessageBox& box) { shown = box.icon(); });
        query(Query::MessageType(type)).display();
        QCOMPARE(shown, icon);
    }

    void belongsToItsParent()
    {
        QWidget window;
        window.show();
        const QWidget* parent = nullptr;
        const Answer answer([&parent](QMessageBox& box) { parent = box.parentWidget(); });
        Query(title, question, Query::Warning, &window, details).display();
        QCOMPARE(parent, &window);
    }

    void asksWithoutAParentThatIsGone()
    {
        auto window = std::make_unique<QWidget>();
        Query asked(title, question, Query::Warning, window.get(), details);
        window.reset();
        const Answer answer([](QMessageBox& box) { QCOMPARE(box.parentWidget(), nullptr); });
        asked.display();
        QVERIFY(answer.hasBeenGiven());
    }

    void showsAButtonForEveryOption()
    {
        const Answer answer([](QMessageBox& box) {
            QAbstractButton* const goOn = buttonOf(box, QStringLiteral("Go on"));
            QAbstractButton* const other = buttonOf(box, QStringLiteral("Other"));
            QAbstractButton* const stop = buttonOf(box, QStringLiteral("Stop"));
            QVERIFY(goOn && other && stop);
            QCOMPARE(box.buttonRole(goOn), QMessageBox::AcceptRole);
            QCOMPARE(box.buttonRole(other), QMessageBox::ActionRole);
            QCOMPARE(box.buttonRole(stop), QMessageBox::DestructiveRole);
            QCOMPARE(goOn->toolTip(), QStringLiteral("Goes on"));
            QCOMPARE(other->toolTip(), QString());
            QCOMPARE(stop->toolTip(), QStringLiteral("Stops"));
            QCOMPARE(box.defaultButton(), static_cast<QPushButton*>(goOn));
            QCOMPARE(box.escapeButton(), stop);
        });
        queryWithOptions().display();
        QVERIFY(answer.hasBeenGiven());
    }

    void answersWithTheRoleOfTheChosenButton_data()
    {
        QTest::addColumn<QString>("button");
        QTest::addColumn<int>("role");
        QTest::newRow("accept") << QStringLiteral("Go on") << int(QMessageBox::AcceptRole);
        QTest::newRow("action") << QStringLiteral("Other") << int(QMessageBox::ActionRole);
        QTest::newRow("destroy") << QStringLiteral("Stop") << int(QMessageBox::DestructiveRole);
    }

    void answersWithTheRoleOfTheChosenButton()
    {
        QFETCH(QString, button);
        QFETCH(int, role);
        const Answer answer(click(button));
        QCOMPARE(queryWithOptions().display(), role);
    }

    void answersAsEscapeWhenItsParentGoes()
    {
        auto parent = std::make_unique<QWidget>();
        Query asked(title, question, Query::Warning, parent.get(), details);
        asked.addOption(QStringLiteral("Go on"), QMessageBox::AcceptRole, Query::EnterDefault);
        asked.addOption(QStringLiteral("Stop"), QMessageBox::DestructiveRole, Query::EscapeDefault);
        QTimer::singleShot(20, parent.get(), [&parent] { parent.reset(); });
        QCOMPARE(asked.display(), int(QMessageBox::DestructiveRole));
        QVERIFY(!parent);
        QVERIFY(!shownBox());
    }

    void enterChoosesItsDefault()
    {
        const Answer answer(
            [](QMessageBox& box) { QTest::keyClick(box.defaultButton(), Qt::Key_Return); });
        QCOMPARE(queryWithOptions().display(), int(QMessageBox::AcceptRole));
    }

    void escapeChoosesItsDefault()
    {
        const Answer answer(press(Qt::Key_Escape));
        QCOMPARE(queryWithOptions().display(), int(QMessageBox::DestructiveRole));
    }

    void closingTheBoxChoosesTheDefaultOfEscape()
    {
        const Answer answer([](QMessageBox& box) { box.close(); });
        QCOMPARE(queryWithOptions().display(), int(QMessageBox::DestructiveRole));
    }

    // A box may be closed with the window that it belongs to.
    void aBoxThatGoesWithoutAnAnswerMeansEscape()
    {
        const Answer answer([](QMessageBox& box) { box.done(0); });
        QCOMPARE(queryWithOptions().display(), int(QMessageBox::DestructiveRole));
    }

    void canBeAskedAgain()
    {
        Query asked = queryWithOptions();
        for (const QString& button : {QStringLiteral("Stop"), QStringLiteral("Other")}) {
            const Answer answer(click(button));
            QCOMPARE(asked.display(), button == QLatin1String("Stop")
                                          ? int(QMessageBox::DestructiveRole)
                                          : int(QMessageBox::ActionRole));
        }
    }

    void anInteractiveApplicationIsAsked()
    {
        const FakeApplication application(false);
        const Answer answer(click(QStringLiteral("Other")));
        QCOMPARE(queryWithOptions().display(), int(QMessageBox::ActionRole));
    }

    void isAnsweredAsByEscapeWhenNobodyIsThere_data()
    {
        QTest::addColumn<Options>("options");
        constexpr int accept = QMessageBox::AcceptRole;
        constexpr int reject = QMessageBox::RejectRole;
        constexpr int yes = QMessageBox::YesRole;
        constexpr int no = QMessageBox::NoRole;
        constexpr int action = QMessageBox::ActionRole;
        // clang-format off
        QTest::newRow("none")                     << Options{};
        QTest::newRow("one")                      << Options{{action, 0}};
        QTest::newRow("chosen")                   << Options{{accept, 2}, {reject, 0}};
        QTest::newRow("enter is no escape")       << Options{{accept, 1}, {reject, 0}};
        QTest::newRow("reject")                   << Options{{accept, 0}, {reject, 0}, {no, 0}};
        QTest::newRow("no")                       << Options{{yes, 0}, {no, 0}};
        QTest::newRow("two reject, one declines") << Options{{reject, 0}, {reject, 0}, {no, 0}};
        QTest::newRow("two chosen")               << Options{{accept, 2}, {yes, 2}};
        // clang-format on
    }

    void isAnsweredAsByEscapeWhenNobodyIsThere()
    {
        QFETCH(Options, options);
        Query asked = query(Query::Warning, QString());
        for (const auto& option : qAsConst(options)) {
            asked.addOption(QStringLiteral("Option"), QMessageBox::ButtonRole(option.first),
                            Query::OptionDefaultType(option.second));
        }
        int byEscape = -1;
        {
            const Answer answer(press(Qt::Key_Escape));
            byEscape = asked.display();
            QVERIFY(answer.hasBeenGiven());
        }
        const FakeApplication application(true);
        const Answer answer([](QMessageBox&) {});
        QCOMPARE(asked.display(), byEscape);
        QVERIFY(!answer.hasBeenGiven());
    }

    void printsWhenNobodyIsThere_data()
    {
        QTest::addColumn<QString>("task");
        QTest::newRow("non-interactive") << QStringLiteral("non-interactive");
        QTest::newRow("no windows") << QStringLiteral("no windows");
        QTest::newRow("no application object") << QStringLiteral("no application");
    }

    void printsWhenNobodyIsThere()
    {
        QFETCH(QString, task);
        const ChildRun child(task);
        QVERIFY(child.hasEndedWell());
        QCOMPARE(child.output(), QStringLiteral("%1\n").arg(int(QMessageBox::DestructiveRole)));
        QCOMPARE(child.error(), QStringLiteral("%1\n%2\n%3\n").arg(title, question, details));
    }

    void printsNoEmptyLines()
    {
        const ChildRun child(QStringLiteral("non-interactive, bare"));
        QVERIFY(child.hasEndedWell());
        QCOMPARE(child.error(), QStringLiteral("%1\n%1\n%2\n%3\n").arg(title, question, details));
    }
};

int main(int argc, char* argv[])
{
    const QString task = ChildRun::taskOfThisRun();
    if (!task.isEmpty()) {
        return doTask(task, argc, argv);
    }
    // Qt warns where the desktop has not set it, also in the runs whose output is compared.
    const QTemporaryDir runtimeDirectory;
    qputenv("XDG_RUNTIME_DIR", QFile::encodeName(runtimeDirectory.path()));
    const QApplication application(argc, argv);
    tst_common_UserQuery test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_common_UserQuery.moc"
