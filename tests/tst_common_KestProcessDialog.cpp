#include <BoxAnswerer.h>
#include <BoxReader.h>
#include <DialogStage.h>

#include <common_ComponentsLaunchOptions.h>

#include <QAction>
#include <QClipboard>
#include <QGridLayout>
#include <QGroupBox>
#include <QMovie>
#include <QtTest>

#include <functional>
#include <type_traits>

namespace {

static_assert(std::is_base_of<QDialog, common_KestProcessDialog>::value, "a dialog");
static_assert(std::is_convertible<common_KestProcessDialog*,
                                  common_ObserverOf<common_IProcessRunnerObserver>*>::value,
              "an observer");

QLabel* labelOf(const QWidget* parent, const QString& text)
{
    const QList<QLabel*> labels = parent->findChildren<QLabel*>();
    for (QLabel* const label : labels) {
        if (label->text() == text) {
            return label;
        }
    }
    return nullptr;
}

QLabel* busyLabel(const QWidget* parent)
{
    const QList<QLabel*> labels = parent->findChildren<QLabel*>();
    for (QLabel* const label : labels) {
        if (label->movie()) {
            return label;
        }
    }
    return nullptr;
}

QRgb colourOf(const QPixmap& pixmap)
{
    return pixmap.isNull() ? 0 : pixmap.toImage().pixel(pixmap.width() / 2, pixmap.height() / 2);
}

QRgb iconColour(const QAbstractButton* button, QIcon::State state = QIcon::Off)
{
    return colourOf(button->icon().pixmap(QSize(16, 16), QIcon::Normal, state));
}

QStringList strings(std::initializer_list<const char*> texts)
{
    QStringList result;
    for (const char* const text : texts) {
        result.append(QString::fromUtf8(text));
    }
    return result;
}

QRgb colour(const char* name)
{
    return Picture::colour(QLatin1String(name)).rgb();
}

/// What there is to see of a dialog.
class Stage : public DialogStage
{
public:
    using DialogStage::DialogStage;

    QLabel* phaseLabel() const { return labelOf(dialog, QStringLiteral("Current phase:")); }
    QLabel* totalLabel() const { return labelOf(dialog, QStringLiteral("Total progress:")); }
    QLabel* busy() const { return busyLabel(dialog); }
    QGroupBox* noticesBox() const { return box("distinct notice(s) occurred"); }
    QGroupBox* warningsBox() const { return box("distinct warning(s) occurred"); }
    QString outcome() const { return ok()->property("squishValue").toString(); }

    bool storedDetailsShown() const
    {
        return (*common_ComponentsLaunchOptions::create(
            ReadOnlyAccess))[QStringLiteral("RunDetailsShown")]
            .castToBool();
    }

    void storeDetailsShown(bool shown) const
    {
        SettingsFolders::write(folders.userFile(), shown ? "[options]\nRunDetailsShown=true\n"
                                                         : "[options]\nRunDetailsShown=false\n");
    }

    /// The widgets that there are to see, in a fixed order.
    QStringList visible() const
    {
        const QPair<const char*, QWidget*> widgets[] = {{"total label", totalLabel()},
                                                        {"busy", busy()},
                                                        {"total bar", bar("totalProgressBar")},
                                                        {"phase label", phaseLabel()},
                                                        {"bar", bar("progressBar")},
                                                        {"notices", noticesBox()},
                                                        {"warnings", warningsBox()},
                                                        {"info", info()},
                                                        {"output", tabs()},
                                                        {"details", details()},
                                                        {"ok", ok()},
                                                        {"stop", stop()}};
        QStringList names;
        for (const auto& widget : widgets) {
            if (!widget.second->isHidden()) {
                names.append(QLatin1String(widget.first));
            }
        }
        return names;
    }

private:
    QGroupBox* box(const char* text) const
    {
        return qobject_cast<QGroupBox*>(labelOf(dialog, QLatin1String(text))->parentWidget());
    }
};

QStringList names(const char* list)
{
    return QString::fromLatin1(list).split(QStringLiteral(", "));
}

const char* const closedDetails = "busy, total bar, details, ok, stop";
const char* const openDetails =
    "total label, total bar, phase label, bar, info, output, details, ok, stop";

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
    void showsItselfWhenTheProcessStarts();
    void staysHiddenInBatchMode();
    void movesNoBarInBatchMode();
    void namesTheProcess_data();
    void namesTheProcess();
    void keepsTheTitleOfTheCaller();
    void keepsTheInfoTextOfTheCaller();
    void opensTheDetailsAsTheLastTime_data();
    void opensTheDetailsAsTheLastTime();
    void keepsTheDetailsClosedWhereTheyCannotBeOpened();
    void storesADetailsClick();
    void storesNothingElseWithADetailsClick();
    void storesNothingWhileTheSettingsAreLocked();
    void storesNothingWhenAnErrorOpensTheDetails();
    void togglesTheDetails();
    void tellsOfAFailedStart();
    void showsPercentages_data();
    void showsPercentages();
    void keepsPercentagesThatCannotBeSeen();
    void showsErrors();
    void countsWarningsAndNotices();
    void showsTheBoxesOfOneWhenTheDetailsClose();
    void acceptsNoVariables_data();
    void acceptsNoVariables();
    void tellsTheOutcome_data();
    void tellsTheOutcome();
    void hidesTheProgress();
    void showsTheProgress();
    void showsTheInfoLabel();
    void reactsToWholeClicks();
    void copiesTheCommand();
    void stopsObservingAtItsEnd();
    void holdsTheRunner();
    void worksWithAClipboardThatNobodyOwns();
    void worksWithoutIconTheme();
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
    QCOMPARE(stage.tabs()->font().weight(), static_cast<int>(QFont::Normal));
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

void tst_common_KestProcessDialog::showsItselfWhenTheProcessStarts()
{
    const Stage stage;
    stage.runner->start();
    QVERIFY(stage.dialog->isVisible());
    QVERIFY(!stage.dialog->isModal());
    QVERIFY(stage.stop()->isEnabled());
    QVERIFY(!stage.ok()->isEnabled());
    QCOMPARE(stage.visible(), names(closedDetails));
}

void tst_common_KestProcessDialog::staysHiddenInBatchMode()
{
    Stage stage;
    stage.application.nonInteractive = true;
    stage.storeDetailsShown(true);
    stage.runner->start();
    QVERIFY(!stage.details()->isChecked());
    stage.runner->output(QStringLiteral("text"));
    stage.runner->error(QStringLiteral("error"));
    QVERIFY(!stage.dialog->isVisible());
    QCOMPARE(stage.text(), QStringLiteral("text\nerror"));
    stage.runner->warning(QStringLiteral("WARNING 1: text"));
    QVERIFY(!stage.tabs()->isHidden() && !stage.tabs()->isVisible());
    QVERIFY(!stage.warningsBox()->isHidden());
    stage.runner->end();
    QVERIFY(!stage.dialog->isVisible());
    QVERIFY(stage.ok()->isEnabled());
}

void tst_common_KestProcessDialog::movesNoBarInBatchMode()
{
    Stage stage;
    stage.application.nonInteractive = true;
    stage.runner->start();
    stage.runner->total(QStringLiteral("100"));
    QVERIFY(stage.bar("totalProgressBar")->value() < 1);
    stage.runner->end();
    QCOMPARE(stage.outcome(), QStringLiteral("fault"));
}

void tst_common_KestProcessDialog::namesTheProcess_data()
{
    QTest::addColumn<QString>("executable");
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("title");
    QTest::addColumn<QString>("info");

    QTest::newRow("usual") << QStringLiteral("/suite/bin/runkest") << strings({"a.nec", "-np", "2"})
                           << QStringLiteral("Executing runkest")
                           << QStringLiteral("> runkest a.nec -np 2");
    QTest::newRow("extension") << QStringLiteral("C:/suite/bin/runkest.exe") << strings({"a b"})
                               << QStringLiteral("Executing runkest")
                               << QStringLiteral("> runkest.exe a b");
    QTest::newRow("several dots") << QStringLiteral("/suite/bin/runkest.2.exe") << strings({"a"})
                                  << QStringLiteral("Executing runkest")
                                  << QStringLiteral("> runkest.2.exe a");
    QTest::newRow("no arguments") << QStringLiteral("runkest") << QStringList()
                                  << QStringLiteral("Executing runkest")
                                  << QStringLiteral("> runkest ");
    QTest::newRow("blank in the path")
        << QStringLiteral("/my suite/run kest") << strings({""})
        << QStringLiteral("Executing run kest") << QStringLiteral("> run kest ");
}

void tst_common_KestProcessDialog::namesTheProcess()
{
    QFETCH(QString, executable);
    QFETCH(QStringList, arguments);
    const Stage stage;
    stage.runner->start(executable, arguments);
    QTEST(stage.dialog->windowTitle(), "title");
    QTEST(stage.info()->text(), "info");
}

void tst_common_KestProcessDialog::keepsTheTitleOfTheCaller()
{
    const Stage stage;
    stage.dialog->setTitle(QStringLiteral("Mine"));
    QCOMPARE(stage.dialog->windowTitle(), QStringLiteral("Mine"));
    stage.runner->start();
    QCOMPARE(stage.dialog->windowTitle(), QStringLiteral("Mine"));
    stage.runner->end();
    stage.dialog->setTitle(QString());
    QVERIFY(stage.dialog->windowTitle().isEmpty());
    stage.runner->start();
    QCOMPARE(stage.dialog->windowTitle(), QStringLiteral("Executing runkest"));
}

void tst_common_KestProcessDialog::keepsTheInfoTextOfTheCaller()
{
    const Stage stage;
    stage.dialog->setInfoLabel(QStringLiteral("Mine"));
    QCOMPARE(stage.info()->text(), QStringLiteral("Mine"));
    stage.runner->start();
    QCOMPARE(stage.info()->text(), QStringLiteral("Mine"));
    stage.runner->end();
    stage.dialog->setInfoLabel(QString());
    QVERIFY(stage.info()->text().isEmpty());
    stage.runner->start();
    QCOMPARE(stage.info()->text(), QStringLiteral("> runkest dipole.nec"));
}

void tst_common_KestProcessDialog::opensTheDetailsAsTheLastTime_data()
{
    QTest::addColumn<bool>("shown");

    QTest::newRow("shown") << true;
    QTest::newRow("hidden") << false;
}

void tst_common_KestProcessDialog::opensTheDetailsAsTheLastTime()
{
    QFETCH(bool, shown);
    const Stage stage;
    stage.storeDetailsShown(shown);
    const auto lock = common_ComponentsLaunchOptions::create(ReadWriteAccess);
    stage.runner->start();
    QCOMPARE(stage.details()->isChecked(), shown);
    QCOMPARE(stage.visible(), names(shown ? openDetails : closedDetails));
    QCOMPARE(stage.storedDetailsShown(), shown);

    stage.storeDetailsShown(!shown); // for the next start
    stage.runner->start();
    QCOMPARE(stage.details()->isChecked(), !shown);
}

void tst_common_KestProcessDialog::keepsTheDetailsClosedWhereTheyCannotBeOpened()
{
    const Stage stage;
    stage.storeDetailsShown(false);
    stage.dialog->setProgressBarVisible(false);
    stage.runner->start();
    QVERIFY(stage.details()->isChecked());
    QVERIFY(stage.tabs()->isVisible());
}

void tst_common_KestProcessDialog::storesADetailsClick()
{
    const Stage stage;
    stage.runner->start();
    stage.details()->click();
    QVERIFY(stage.details()->isChecked());
    QVERIFY(stage.storedDetailsShown());
    stage.details()->click();
    QVERIFY(!stage.storedDetailsShown());
    stage.details()->click();
    QVERIFY(stage.storedDetailsShown());
    QVERIFY(common_ComponentsLaunchOptions::create(ReadWriteAccess));
}

void tst_common_KestProcessDialog::storesNothingElseWithADetailsClick()
{
    const Stage stage;
    SettingsFolders::write(stage.folders.userFile(), "[options]\nRunParallel=true\n"
                                                     "[of another]\nkey=value\n");
    stage.runner->start();
    stage.details()->click();
    QVERIFY(stage.storedDetailsShown());
    const QSettings file(stage.folders.userFile(), QSettings::IniFormat);
    QCOMPARE(file.value(QStringLiteral("options/RunParallel")).toBool(), true);
    QCOMPARE(file.value(QStringLiteral("of another/key")).toString(), QStringLiteral("value"));
}

void tst_common_KestProcessDialog::storesNothingWhileTheSettingsAreLocked()
{
    const Stage stage;
    stage.runner->start();
    const auto lock = common_ComponentsLaunchOptions::create(ReadWriteAccess);
    stage.details()->click();
    QVERIFY(stage.details()->isChecked());
    QVERIFY(stage.tabs()->isVisible());
    QVERIFY(!stage.storedDetailsShown());
}

void tst_common_KestProcessDialog::storesNothingWhenAnErrorOpensTheDetails()
{
    const Stage stage;
    stage.runner->start();
    stage.runner->error(QStringLiteral("bad value"));
    QVERIFY(stage.details()->isChecked());
    QVERIFY(!stage.storedDetailsShown());
}

void tst_common_KestProcessDialog::togglesTheDetails()
{
    const Stage stage;
    stage.runner->start();
    const QSize closed = stage.dialog->size();
    stage.details()->setChecked(true);
    QCOMPARE(stage.visible(), names(openDetails));
    QVERIFY(stage.dialog->height() > closed.height() + 200);
    stage.details()->setChecked(false);
    QCOMPARE(stage.visible(), names(closedDetails));
    QTRY_COMPARE(stage.dialog->size(), closed);
}

void tst_common_KestProcessDialog::tellsOfAFailedStart()
{
    QWidget window;
    BoxReader boxes;
    const Stage stage(&window);
    stage.runner->setExecutable(stage.folders.path() + QStringLiteral("/missing %2"));
    stage.runner->setArguments({QStringLiteral("one"), QStringLiteral("two words")});
    QVERIFY(!stage.runner->run());
    const QVector<BoxReader::Box> shown = boxes.take();
    QCOMPARE(shown.size(), 1);
    QCOMPARE(shown[0].title, QStringLiteral("Information"));
    QCOMPARE(shown[0].text,
             QStringLiteral("Process\n    %1/missing %2\ncould not be started with the following "
                            "arguments:\n    one two words.\nPlease ensure that Morlan Kest is "
                            "fully installed, and that\nthe KEST_HOME environment variable is set "
                            "correctly.")
                 .arg(stage.folders.path()));
    QVERIFY(shown[0].details.isEmpty());
    QCOMPARE(shown[0].icon, QMessageBox::Information);
    QCOMPARE(shown[0].parent, &window);
    QVERIFY(!stage.dialog->isVisible());
    QVERIFY(stage.ok()->isEnabled());
    QVERIFY(!stage.stop()->isEnabled());
    QVERIFY(!stage.ok()->property("squishValue").isValid());
}

void tst_common_KestProcessDialog::showsPercentages_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("value"); // 7 before

    QTest::newRow("usual") << QStringLiteral("45") << 45;
    QTest::newRow("none") << QStringLiteral("0") << 0;
    QTest::newRow("all") << QStringLiteral("100") << 100;
    QTest::newRow("no number") << QStringLiteral("half") << 0;
    QTest::newRow("empty") << QString() << 0;
    QTest::newRow("ignored") << QStringLiteral("-1") << 7;
    QTest::newRow("too much") << QStringLiteral("999") << 7;
}

void tst_common_KestProcessDialog::showsPercentages()
{
    QFETCH(QString, text);
    QFETCH(int, value);
    const Stage stage;
    stage.runner->start();
    stage.openDetails();
    const QPair<common_IProcessMessage::Type, const char*> bars[] = {
        {common_IProcessMessage::Percentage, "progressBar"},
        {common_IProcessMessage::TotalPercentage, "totalProgressBar"}};
    for (const auto& bar : bars) {
        stage.runner->say(bar.first, QStringLiteral("7"));
        QCOMPARE(stage.bar(bar.second)->value(), 7);
        stage.runner->say(bar.first, text);
        QCOMPARE(stage.bar(bar.second)->value(), value);
    }
}

void tst_common_KestProcessDialog::keepsPercentagesThatCannotBeSeen()
{
    const Stage stage;
    stage.runner->start();
    stage.openDetails();
    stage.runner->say(common_IProcessMessage::Percentage, QStringLiteral("30"));
    stage.details()->setChecked(false);
    stage.runner->say(common_IProcessMessage::Percentage, QStringLiteral("40"));
    stage.runner->total(QStringLiteral("50"));
    QCOMPARE(stage.bar("progressBar")->value(), 30);
    QCOMPARE(stage.bar("totalProgressBar")->value(), 50);
}

void tst_common_KestProcessDialog::showsErrors()
{
    const Stage stage;
    stage.runner->start();
    stage.runner->warning(QStringLiteral("WARNING 1: text"));
    QVERIFY(stage.warningsBox()->isVisible());
    stage.runner->error(QStringLiteral("bad value"));
    QCOMPARE(stage.visible(), names(openDetails));
    QCOMPARE(stage.errors()->toPlainText(), QStringLiteral("bad value"));
}

void tst_common_KestProcessDialog::countsWarningsAndNotices()
{
    const Stage stage;
    stage.runner->start();
    const auto count = [](const QGroupBox* box) {
        return qobject_cast<QLabel*>(box->layout()->itemAt(1)->widget())->text();
    };
    stage.runner->warning(QStringLiteral("without the word"));
    QVERIFY(stage.warningsBox()->isVisible());
    QCOMPARE(count(stage.warningsBox()), QStringLiteral("0"));
    QVERIFY(!stage.noticesBox()->isVisible());
    stage.runner->notice(QStringLiteral("NOTE 1: text"));
    stage.runner->notice(QStringLiteral("NOTE 1: text"));
    QVERIFY(stage.noticesBox()->isVisible());
    QCOMPARE(count(stage.noticesBox()), QStringLiteral("2"));
    stage.runner->notice(QStringLiteral("without the word"));
    QCOMPARE(count(stage.noticesBox()), QStringLiteral("2"));

    stage.openDetails();
    QVERIFY(!stage.noticesBox()->isVisible());
    QVERIFY(!stage.warningsBox()->isVisible());
    stage.runner->warning(QStringLiteral("WARNING 1: text"));
    QVERIFY(!stage.warningsBox()->isVisible());
    QCOMPARE(count(stage.warningsBox()), QStringLiteral("1"));

    stage.details()->setChecked(false);
    QVERIFY(stage.noticesBox()->isVisible());
    QVERIFY(stage.warningsBox()->isVisible());
}

void tst_common_KestProcessDialog::showsTheBoxesOfOneWhenTheDetailsClose()
{
    const Stage stage;
    stage.runner->start();
    stage.openDetails();
    stage.runner->notice(QStringLiteral("NOTE 1: text"));
    stage.details()->setChecked(false);
    QVERIFY(stage.noticesBox()->isVisible());
    QVERIFY(!stage.warningsBox()->isVisible());
    stage.openDetails();
    stage.runner->warning(QStringLiteral("WARNING 1: text"));
    stage.details()->setChecked(false);
    QVERIFY(stage.noticesBox()->isVisible());
    QVERIFY(stage.warningsBox()->isVisible());
}

void tst_common_KestProcessDialog::acceptsNoVariables_data()
{
    QTest::addColumn<QString>("deed");

    QTest::newRow("variable") << QStringLiteral("variable");
    QTest::newRow("unknown type") << QStringLiteral("unknown");
}

void tst_common_KestProcessDialog::acceptsNoVariables()
{
    QFETCH(QString, deed);
    const QTemporaryDir folder;
    const QString words = Child::lastWords(deed, folder.path());
    QVERIFY2(words.contains(QStringLiteral("src/process/common_KestProcessDialog.cpp (")) &&
                 words.contains(QStringLiteral("): Assertion failed: 0\n")),
             qPrintable(words));
}

void tst_common_KestProcessDialog::tellsTheOutcome_data()
{
    QTest::addColumn<QStringList>("percentages");
    QTest::addColumn<QString>("outcome");

    QTest::newRow("none") << QStringList() << QStringLiteral("fault");
    QTest::newRow("99") << strings({"50", "99"}) << QStringLiteral("fault");
    QTest::newRow("100") << strings({"50", "100"}) << QStringLiteral("valid");
    QTest::newRow("100, then less") << strings({"100", "99"}) << QStringLiteral("fault");
    QTest::newRow("100, then too much") << strings({"100", "101"}) << QStringLiteral("valid");
}

void tst_common_KestProcessDialog::tellsTheOutcome()
{
    QFETCH(QStringList, percentages);
    QFETCH(QString, outcome);
    const Stage stage;
    stage.runner->start();
    for (const QString& percentage : qAsConst(percentages)) {
        stage.runner->total(percentage);
    }
    QVERIFY(!stage.ok()->property("squishValue").isValid());
    stage.dialog->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(stage.dialog));
    stage.runner->end();
    QCOMPARE(stage.outcome(), outcome);
    QCOMPARE(iconColour(stage.ok()), Picture::colour(outcome).rgb());
    QVERIFY(stage.ok()->isEnabled());
    QVERIFY(stage.ok()->hasFocus());
    QVERIFY(!stage.stop()->isEnabled());
}

void tst_common_KestProcessDialog::hidesTheProgress()
{
    const Stage stage;
    stage.dialog->setProgressBarVisible(false);
    stage.runner->start();
    QVERIFY(stage.details()->isChecked());
    QCOMPARE(stage.visible(), names("info, output, ok, stop"));
    QVERIFY(!stage.storedDetailsShown());
    stage.runner->total(QStringLiteral("10"));
    stage.runner->end();
    QCOMPARE(stage.outcome(), QStringLiteral("valid"));
}

void tst_common_KestProcessDialog::showsTheProgress()
{
    const Stage stage;
    stage.openDetails();
    stage.dialog->setProgressBarVisible(true);
    QVERIFY(!stage.details()->isChecked());
    QCOMPARE(stage.visible(),
             names("total label, busy, total bar, phase label, bar, details, ok, stop"));
    QCOMPARE(stage.bar("totalProgressBar")->value(), 100);
}

void tst_common_KestProcessDialog::showsTheInfoLabel()
{
    const Stage stage;
    stage.dialog->setInfoLabelVisible(true);
    QVERIFY(!stage.info()->isHidden());
    stage.dialog->setInfoLabelVisible(false);
    QVERIFY(stage.info()->isHidden());
}

// To press the mouse is not enough: a user may let go of it elsewhere.
void tst_common_KestProcessDialog::reactsToWholeClicks()
{
    const Stage stage;
    BoxAnswerer answerer(BoxAnswerer::clicking(QStringLiteral("No")));
    stage.runner->start();
    QTest::mousePress(stage.stop(), Qt::LeftButton);
    QTest::mouseRelease(stage.stop(), Qt::LeftButton, Qt::NoModifier, QPoint(-50, -50));
    QVERIFY(answerer.texts.isEmpty());
    QTest::mouseClick(stage.stop(), Qt::LeftButton);
    QCOMPARE(answerer.texts.size(), 1);

    QTest::mousePress(stage.details(), Qt::LeftButton);
    QVERIFY(stage.tabs()->isHidden());
    QTest::mouseRelease(stage.details(), Qt::LeftButton);
    QVERIFY(stage.tabs()->isVisible());
    QVERIFY(stage.storedDetailsShown());

    stage.runner->end();
    QTest::mousePress(stage.ok(), Qt::LeftButton);
    QVERIFY(stage.dialog->isVisible());
    QTest::mouseRelease(stage.ok(), Qt::LeftButton);
    QTRY_VERIFY(stage.dialog.isNull());
}

void tst_common_KestProcessDialog::copiesTheCommand()
{
    const Stage stage;
    stage.runner->start();
    stage.info()->actions().constFirst()->trigger();
    QCOMPARE(QApplication::clipboard()->text(), QStringLiteral("runkest dipole.nec"));
    stage.dialog->setInfoLabel(QStringLiteral("Mine"));
    stage.info()->actions().constFirst()->trigger();
    QCOMPARE(QApplication::clipboard()->text(), QStringLiteral("ne"));
}

void tst_common_KestProcessDialog::stopsObservingAtItsEnd()
{
    const Stage stage;
    stage.runner->start();
    stage.runner->output(QStringLiteral("text"));
    delete stage.dialog;
    stage.runner->output(QStringLiteral("text"));
    stage.runner->end();
    QCOMPARE(stage.runner->getRefCount(), 1);
}

void tst_common_KestProcessDialog::holdsTheRunner()
{
    Stage stage;
    QCOMPARE(stage.runner->getRefCount(), 2);
    const int count = common_ProcessRunnerBase::getProcessCount();
    TalkingRunner* const runner = stage.runner.get();
    stage.runner.reset();
    runner->start();
    QVERIFY(stage.dialog->isVisible());
    runner->end();
    delete stage.dialog;
    QCOMPARE(common_ProcessRunnerBase::getProcessCount(), count - 1);
}

void tst_common_KestProcessDialog::worksWithAClipboardThatNobodyOwns()
{
    const Stage stage;
    stage.runner->start();
    stage.openDetails();
    stage.runner->output(QStringLiteral("a line"));
    stage.runner->warning(QStringLiteral("WARNING 1: text"));
    const std::function<void()> copies[] = {
        [&stage] { stage.info()->actions().constFirst()->trigger(); },
        [&stage] {
            stage.output()->selectAll();
            stage.output()->copy();
        },
        [&stage] {
            stage.warnings()->selectAll();
            stage.warnings()->actions().constFirst()->trigger();
        },
    };
    QStringList copied;
    for (const auto& copy : copies) {
        QApplication::clipboard()->clear();
        QCOMPARE(QApplication::clipboard()->text(), QString());
        QVERIFY(!stage.dialog->grab().isNull());
        copy();
        copied.append(QApplication::clipboard()->text().trimmed());
    }
    QCOMPARE(copied, (QStringList{QStringLiteral("runkest dipole.nec"),
                                  QStringLiteral("a line\nWARNING 1: text"),
                                  QStringLiteral("WARNING 1: text")}));
}

void tst_common_KestProcessDialog::worksWithoutIconTheme()
{
    Stage stage;
    delete stage.dialog;
    stage.icons.isEmpty = true;
    stage.dialog = new common_KestProcessDialog(stage.runner, nullptr);
    stage.runner->start();
    stage.openDetails();
    stage.runner->warning(QStringLiteral("WARNING 1: text"));
    stage.runner->end();
    QVERIFY(stage.ok()->icon().isNull());
    QCOMPARE(stage.outcome(), QStringLiteral("fault"));
    QVERIFY(!stage.dialog->grab().isNull());
}

namespace {

// What ends the program.
int doDeed(const QString& deed)
{
    FakePixmapUtility pixmaps;
    pixmaps.missing = deed;
    const FakeIconUtility icons;
    const FakeApplication application;
    const FakeApplicationInfo info(Child::folder());
    const common_ActivePtr<TalkingRunner> runner(new TalkingRunner);
    const common_KestProcessDialog dialog(runner, nullptr);
    runner->say(deed == QLatin1String("variable") ? common_IProcessMessage::Variable
                                                  : static_cast<common_IProcessMessage::Type>(9),
                QStringLiteral("x = 1"));
    return 0;
}

} // namespace

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
