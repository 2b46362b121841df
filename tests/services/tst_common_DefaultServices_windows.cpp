// SPDX-License-Identifier: MIT
#include <BoxAnswerer.h>
#include <FakeServices.h>
#include <Text.h>

#include <common_DefaultServices.h>
#include <common_HelpClient.h>
#include <common_IIconUtility.h>
#include <common_IPixmapUtility.h>
#include <common_KestProcessDialog.h>
#include <common_ProcessDialogIcons.h>
#include <common_ServiceCheck.h>

#include <QIcon>
#include <QPixmap>
#include <QPointer>
#include <QPushButton>
#include <QTemporaryDir>
#include <QtTest>

namespace {

namespace icons = common_ProcessDialogIcons;

using Check = common_ServiceCheck;
using Runner = common_ProcessRunner<common_KestProcessMessage>;

void show(const char* message, common_UserMessage::MessageFormat format, QWidget* parent = nullptr)
{
    GET_SERVICE(common_ISession)
        ->showUserMessage(common_UserMessage::create(text(message), text("4711"),
                                                     common_UserMessage::Warning, format),
                          parent);
}

} // namespace

class tst_common_DefaultServices_windows : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void setsWhatAnApplicationNeeds()
    {
        const Check::Uses all = Check::Settings | Check::RunSetup | Check::ProcessDialog |
                                Check::GuiLauncher | Check::RenderingDialog;
        {
            const common_DefaultServices services(text("Tool"));
            QCOMPARE(Check::problem(all), QString());
            QVERIFY(!GET_SERVICE(common_IApplication)->isNonInteractive());
            GET_SERVICE(common_HelpClient)->registerPage(nullptr, text("page"));
        }
        QCOMPARE(Check::missingServices(all), Check::neededServices(all));
    }

    void asksNothingInAConsole()
    {
        const common_DefaultServices services(text("Tool"), common_DefaultServices::Console);
        QVERIFY(GET_SERVICE(common_IApplication)->isNonInteractive());
        QVERIFY(!common_ServiceOf<common_IIconUtility>::hasService());
    }

    void hasAnIconOfItsOwnForEachNameOfTheDialog()
    {
        const common_DefaultServices services(text("Tool"));
        QVector<QImage> images;
        const QStringList names = icons::icons();
        for (const QString& name : names) {
            const QIcon icon = GET_SERVICE(common_IIconUtility)->getIcon(name);
            QVERIFY2(!icon.isNull(), qPrintable(name));
            const QImage image = icon.pixmap(32, 32).toImage();
            QVERIFY2(!images.contains(image), qPrintable(name));
            images.append(image);
        }
        QVERIFY(GET_SERVICE(common_IIconUtility)->getIcon(text("no-such-icon")).isNull());
    }

    void hasThePicturesOfTheDialog()
    {
        const common_DefaultServices services(text("Tool"));
        QPixmap shown;
        QPixmap hidden;
        auto* const pixmaps = GET_SERVICE(common_IPixmapUtility);
        QVERIFY(
            pixmaps->getPixmap(shown, text(icons::pictureDirectory), text(icons::detailsShown)));
        QVERIFY(
            pixmaps->getPixmap(hidden, text(icons::pictureDirectory), text(icons::detailsHidden)));
        QVERIFY(!shown.isNull() && !hidden.isNull());
        QVERIFY(shown.toImage() != hidden.toImage());
    }

    void findsAPictureInItsDirectory()
    {
        const common_DefaultServices services(text("Tool"));
        const QTemporaryDir folder;
        QImage image(3, 5, QImage::Format_RGB32);
        image.fill(Qt::red);
        QVERIFY(image.save(folder.filePath(text("show_details_arrow.png"))));
        QPixmap found;
        auto* const pixmaps = GET_SERVICE(common_IPixmapUtility);
        QVERIFY(pixmaps->getPixmap(found, folder.path(), text("show_details_arrow")));
        QCOMPARE(found.size(), QSize(3, 5));
        QVERIFY(!pixmaps->getPixmap(found, folder.path(), text("another")));
        QCOMPARE(found.size(), QSize(3, 5));
    }

    void showsMessagesInABox()
    {
        const common_DefaultServices services(text("Tool"));
        QStringList seen;
        const BoxAnswerer answerer([&seen](QMessageBox& box) {
            seen = QStringList{box.text(), box.informativeText(),
                               QString::number(box.icon() == QMessageBox::Warning),
                               QString::number(box.textFormat() == Qt::RichText)};
            box.accept();
        });
        show("<b>A", common_UserMessage::PlainText);
        QCOMPARE(seen, QStringList({text("<b>A"), text("Message 4711"), text("1"), text("0")}));
        show("<b>B", common_UserMessage::RichText);
        QCOMPARE(seen, QStringList({text("<b>B"), text("Message 4711"), text("1"), text("1")}));
    }

    void messageGoesWithItsWindow()
    {
        const common_DefaultServices services(text("Tool"));
        QPointer<QWidget> window = new QWidget;
        const BoxAnswerer answerer([&window](QMessageBox& /*box*/) { delete window; });
        show("A", common_UserMessage::PlainText, window);
        QCOMPARE(answerer.texts, QStringList(text("A")));
        QVERIFY(window.isNull());
    }

    void theProcessDialogWorksWithThem()
    {
        const QTemporaryDir folder;
        qputenv("KEST_USER_HOME", folder.path().toLocal8Bit());
        const common_DefaultServices services(text("Tool"));
        const common_ActivePtr<Runner> runner(new Runner);
        auto* const dialog = new common_KestProcessDialog(runner, nullptr);
        runner->setExecutable(text(KEST_TEST_CHILD));
        runner->setArguments(
            {text("sleep"), text("100"), text("out"), text("-*-total-percentage-*- 100\\n")});
        QVERIFY(runner->run());
        QVERIFY(dialog->isVisible());
        auto* const ok = dialog->findChild<QPushButton*>(text("buttonOk"));
        QTRY_COMPARE_WITH_TIMEOUT(ok->property("squishValue").toString(), text("valid"), 30000);
        delete dialog;
    }
};

QTEST_MAIN(tst_common_DefaultServices_windows)
#include "tst_common_DefaultServices_windows.moc"
