// SPDX-License-Identifier: MIT
#include "DialogParts.h"

#include <QAction>
#include <QGridLayout>
#include <QGroupBox>
#include <QMovie>
#include <QtTest>

#include <type_traits>

namespace {

static_assert(std::is_base_of<QDialog, common_KestProcessDialog>::value, "a dialog");

static_assert(std::is_convertible<common_KestProcessDialog*,
                                  common_ObserverOf<common_IProcessRunnerObserver>*>::value,
              "an observer");

} // namespace

class tst_common_KestProcessDialog : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void hasItsWidgets();
    void isAWindowOfItsOwn();
    void hasItsSlots();
    void hasItsLayout();
    void hasItsInfoLabel();
    void hasItsButtons();
    void hasItsCountBoxes();
    void showsThePicturesOfTheBusyIndicator();
    void has82Columns();
    void needsTheArrows_data();
    void needsTheArrows();
};

void tst_common_KestProcessDialog::hasItsWidgets()
{
    const Stage stage;
    QCOMPARE(stage.dialog->objectName(), QStringLiteral("common_KestProcessDialog"));
    QVERIFY(stage.dialog->testAttribute(Qt::WA_DeleteOnClose));
    QVERIFY(stage.dialog->windowFlags() & Qt::WindowMinimizeButtonHint);
    QVERIFY(!(stage.dialog->windowFlags() & Qt::WindowContextHelpButtonHint));
    QVERIFY(!stage.dialog->isVisible());
    QCOMPARE(stage.visible(), names(closedDetails));
    for (const char* const name : {"progressBar", "totalProgressBar"}) {
        QCOMPARE(stage.bar(name)->minimum(), 0);
        QCOMPARE(stage.bar(name)->maximum(), 100);
        QVERIFY(stage.bar(name)->value() < 1);
    }
    QVERIFY(stage.ok()->isEnabled());
    QVERIFY(!stage.stop()->isEnabled());
    QVERIFY(!stage.ok()->property("squishValue").isValid());
}

void tst_common_KestProcessDialog::isAWindowOfItsOwn()
{
    QWidget window;
    const Stage stage(&window);
    QCOMPARE(stage.dialog->parentWidget(), &window);
    QVERIFY(stage.dialog->isWindow());
    const QDialog plain(&window, Qt::WindowMinimizeButtonHint);
    QCOMPARE(stage.dialog->windowFlags(), plain.windowFlags() & ~Qt::WindowContextHelpButtonHint);
    QVERIFY(stage.dialog->windowTitle().isEmpty());
}

void tst_common_KestProcessDialog::hasItsSlots()
{
    const Stage stage;
    const QMetaObject* const meta = stage.dialog->metaObject();
    for (const char* const slot : {"closeDialog()", "onStopClicked()", "onDetailsClicked(bool)",
                                   "onDetailsToggled(bool)", "onCommandCopied()"}) {
        const int index = meta->indexOfSlot(slot);
        QVERIFY2(index >= 0, slot);
        QCOMPARE(meta->method(index).access(), QMetaMethod::Private);
    }
    QCOMPARE(QLatin1String(meta->superClass()->className()), QLatin1String("QDialog"));
}

void tst_common_KestProcessDialog::hasItsLayout()
{
    const Stage stage;
    const auto* const layout = qobject_cast<QVBoxLayout*>(stage.dialog->layout());
    QVERIFY(layout);
    QCOMPARE(layout->count(), 6);
    const auto* const grid = qobject_cast<QGridLayout*>(layout->itemAt(0)->layout());
    QVERIFY(grid);
    const auto placeOf = [grid](QWidget* widget) {
        int row = 0;
        int column = 0;
        int span = 0;
        grid->getItemPosition(grid->indexOf(widget), &row, &column, &span, &span);
        return QPoint(row, column);
    };
    QCOMPARE(placeOf(stage.totalLabel()), QPoint(0, 0));
    QCOMPARE(placeOf(stage.busy()), QPoint(0, 0));
    QCOMPARE(placeOf(stage.bar("totalProgressBar")), QPoint(0, 1));
    QCOMPARE(placeOf(stage.phaseLabel()), QPoint(1, 0));
    QCOMPARE(placeOf(stage.bar("progressBar")), QPoint(1, 1));
    QCOMPARE(layout->itemAt(1)->widget(), stage.noticesBox());
    QCOMPARE(layout->itemAt(2)->widget(), stage.warningsBox());
    QCOMPARE(layout->itemAt(3)->widget(), stage.info());
    QCOMPARE(layout->itemAt(4)->widget(), stage.tabs());

    const auto* const buttons = qobject_cast<QHBoxLayout*>(layout->itemAt(5)->layout());
    QVERIFY(buttons);
    QCOMPARE(buttons->count(), 3);
    const QPair<QPushButton*, Qt::Alignment> expected[] = {{stage.details(), Qt::AlignLeft},
                                                           {stage.ok(), Qt::AlignRight},
                                                           {stage.stop(), Qt::AlignRight}};
    for (int index = 0; index < 3; ++index) {
        QCOMPARE(buttons->itemAt(index)->widget(), expected[index].first);
        QCOMPARE(buttons->itemAt(index)->alignment(), expected[index].second);
        QCOMPARE(buttons->stretch(index), index == 0 ? 1 : 0);
    }
}

void tst_common_KestProcessDialog::hasItsInfoLabel()
{
    const Stage stage;
    const QLabel* const info = stage.info();
    QCOMPARE(info->textInteractionFlags(),
             Qt::TextInteractionFlags(Qt::TextSelectableByMouse | Qt::LinksAccessibleByMouse |
                                      Qt::LinksAccessibleByKeyboard));
    QCOMPARE(info->frameShape(), QFrame::Panel);
    QCOMPARE(info->frameShadow(), QFrame::Sunken);
    QVERIFY(!info->hasScaledContents());
    QVERIFY(info->wordWrap());
    QVERIFY(info->alignment() & Qt::AlignVCenter);
    QCOMPARE(info->contextMenuPolicy(), Qt::ActionsContextMenu);
    QCOMPARE(info->actions().size(), 1);
    QCOMPARE(info->actions().constFirst()->text(), QStringLiteral("Copy command"));
    QVERIFY(info->text().isEmpty());
}

void tst_common_KestProcessDialog::hasItsButtons()
{
    const Stage stage;
    QCOMPARE(stage.details()->text(), QStringLiteral("&Details"));
    QVERIFY(stage.details()->isFlat());
    QVERIFY(stage.details()->isCheckable());
    QVERIFY(!stage.details()->isChecked());
    QCOMPARE(stage.details()->focusPolicy(), Qt::NoFocus);
    QCOMPARE(iconColour(stage.details(), QIcon::On), colour("show_details_arrow"));
    QCOMPARE(iconColour(stage.details(), QIcon::Off), colour("hide_arrow"));
    QCOMPARE(stage.pixmaps.asked, QStringList({QStringLiteral(":/rc/images/show_details_arrow"),
                                               QStringLiteral(":/rc/images/hide_arrow")}));
    QCOMPARE(stage.ok()->text(), QStringLiteral("OK"));
    QVERIFY(stage.ok()->autoDefault());
    QVERIFY(stage.ok()->isDefault());
    QCOMPARE(iconColour(stage.ok()), colour("play"));
    QCOMPARE(stage.stop()->text(), QStringLiteral("Stop"));
    QVERIFY(stage.stop()->autoDefault());
    QVERIFY(!stage.stop()->isDefault());
    QCOMPARE(iconColour(stage.stop()), colour("exclude"));
}

void tst_common_KestProcessDialog::hasItsCountBoxes()
{
    const Stage stage;
    const QPair<QGroupBox*, const char*> boxes[] = {{stage.noticesBox(), "info"},
                                                    {stage.warningsBox(), "warning"}};
    for (const auto& box : boxes) {
        QVERIFY(box.first->isFlat());
        const auto* const layout = qobject_cast<QHBoxLayout*>(box.first->layout());
        QVERIFY(layout);
        QCOMPARE(layout->count(), 3);
        const auto* const picture = qobject_cast<QLabel*>(layout->itemAt(0)->widget());
        QCOMPARE(picture->pixmap(Qt::ReturnByValue).size(), QSize(16, 16));
        QCOMPARE(colourOf(picture->pixmap(Qt::ReturnByValue)), colour(box.second));
        QCOMPARE(qobject_cast<QLabel*>(layout->itemAt(1)->widget())->text(), QStringLiteral("0"));
        for (int index = 0; index < 3; ++index) {
            QCOMPARE(layout->stretch(index), index == 2 ? 1 : 0);
        }
        QVERIFY(box.first->title().isEmpty());
    }
}

void tst_common_KestProcessDialog::showsThePicturesOfTheBusyIndicator()
{
    Stage missing;
    QCOMPARE(missing.busy()->movie()->fileName(),
             missing.folders.info.installation +
                 QStringLiteral("/images/shared/busyindicator.gif"));
    QVERIFY(!missing.busy()->movie()->isValid());
    missing.runner->start();
    QVERIFY(missing.dialog->isVisible());
    missing.runner->end();

    QDir().mkpath(missing.folders.info.installation + QStringLiteral("/images/shared"));
    QVERIFY(SettingsFolders::write(
        missing.busy()->movie()->fileName(),
        QByteArray::fromHex("47494638396101000100800000ffffff00000021ff0b4e45545343415045322e30"
                            "030100000021f90400050000002c00000000010001000002024401"
                            "0021f90400050000002c000000000100010000020244"
                            "01003b")));
    auto* const dialog = new common_KestProcessDialog(missing.runner, nullptr);
    QMovie* const movie = busyLabel(dialog)->movie();
    QVERIFY(movie->isValid());
    QCOMPARE(movie->state(), QMovie::NotRunning);
    missing.runner->start();
    QCOMPARE(movie->state(), QMovie::Running);
    missing.runner->end();
    QCOMPARE(movie->state(), QMovie::NotRunning);
    delete dialog;
}

void tst_common_KestProcessDialog::has82Columns()
{
    const Stage stage;
    QFont font(QStringLiteral("Courier"), 9, QFont::Normal);
    font.setStyleHint(QFont::TypeWriter);
    const int width = 82 * QFontMetrics(font).horizontalAdvance(QLatin1Char('X'));
    QCOMPARE(stage.tabs()->minimumWidth(), width);
    QCOMPARE(stage.info()->minimumWidth(), width);
    QCOMPARE(stage.tabs()->font().family(), QStringLiteral("Courier"));
    QCOMPARE(stage.tabs()->font().pointSize(), 9);
    QCOMPARE(int(stage.tabs()->font().weight()), static_cast<int>(QFont::Normal));
    QCOMPARE(stage.tabs()->font().styleHint(), QFont::TypeWriter);
    QCOMPARE(stage.info()->font(), QLabel().font());
}

void tst_common_KestProcessDialog::needsTheArrows_data()
{
    QTest::addColumn<QString>("missing");
    QTest::addColumn<QString>("text");

    QTest::newRow("shown")
        << QStringLiteral("show_details_arrow")
        << QStringLiteral("GET_SERVICE(common_IPixmapUtility)->getPixmap(detailsShownArrow, "
                          "\"show_details_arrow\")");
    QTest::newRow("hidden")
        << QStringLiteral("hide_arrow")
        << QStringLiteral("GET_SERVICE(common_IPixmapUtility)->getPixmap(detailsHiddenArrow, "
                          "\"hide_arrow\")");
}

void tst_common_KestProcessDialog::needsTheArrows()
{
    QFETCH(QString, missing);
    QFETCH(QString, text);
    const QTemporaryDir folder;
    const QString words = Child::lastWords(missing, folder.path());
    QVERIFY2(words.contains(QStringLiteral("src/process/common_KestProcessDialog.cpp (")) &&
                 words.contains(QStringLiteral("): Assertion failed: ") + text),
             qPrintable(words));
}

int main(int argc, char* argv[])
{
    QApplication application(argc, argv);
    if (!Child::deed().isEmpty()) {
        return doDeed(Child::deed());
    }
    tst_common_KestProcessDialog test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_common_KestProcessDialog.moc"
