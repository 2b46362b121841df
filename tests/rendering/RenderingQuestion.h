// SPDX-License-Identifier: MIT
#pragma once

#include <FakeServices.h>

#include <common_HelpClient.h>
#include <common_InitialRenderingSettingsDialog.h>

#include <QAbstractButton>
#include <QApplication>
#include <QTimer>

#include <cstdio>
#include <functional>
#include <memory>
#include <stdexcept>

using Dialog = common_InitialRenderingSettingsDialog;

class FakeHelpClient : public OfferedService<common_HelpClient>
{
public:
    void registerPage(QWidget* widget, const QString& page) override
    {
        pages.append({widget, page});
    }

    QVector<QPair<QWidget*, QString>> pages;
};

struct Services
{
    FakeApplication application;
    FakeApplicationInfo info;
    FakeHelpClient help;
};

inline const QString place = QStringLiteral("File > Settings > 3D");

inline const QString questionText = QStringLiteral(
    "<p>Kest Viewer is currently using software (slow) rendering, and will switch over to hardware "
    "(fast) rendering when the 'Test hardware rendering' button is pressed. If Kest Viewer closes "
    "unexpectedly during this test then try to update the graphics card drivers. Also see the User "
    "Guide for more information on supported graphics cards and drivers for hardware "
    "rendering.</p><p>If needed, the rendering settings can be changed via File > Settings > "
    "3D.</p>");

inline const QString confirmationText = QStringLiteral(
    "<p>Please inspect and manipulate the displayed 3D view using the mouse. If the 3D view "
    "renders without any problems then press the 'Keep hardware rendering' button. If Kest Viewer "
    "closes unexpectedly during this test then try to update the graphics card drivers. Also see "
    "the User Guide for more information on supported graphics cards and drivers for hardware "
    "rendering.</p> <p>If needed, the rendering settings can be changed via File > Settings > "
    "3D.</p>");

inline QAbstractButton* testButton(const QMessageBox& box)
{
    return box.buttons().value(0)->text().startsWith(QLatin1String("Use")) ? box.buttons().value(1)
                                                                           : box.buttons().value(0);
}

inline QAbstractButton* softwareButton(const QMessageBox& box)
{
    return testButton(box) == box.buttons().value(0) ? box.buttons().value(1)
                                                     : box.buttons().value(0);
}

using Answer = std::function<void(QMessageBox&)>;

/// Asks the question, and calls the answer with the box when it is shown; ends the box if it is
/// still there then.
inline bool ask(Dialog& dialog, const Answer& answer)
{
    bool isShown = false;
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, &dialog, [&] {
        if (dialog.isVisible()) {
            timer.stop();
            isShown = true;
            answer(dialog);
            if (dialog.isVisible()) {
                dialog.done(-1);
            }
        }
    });
    timer.start(1);
    const bool result = dialog.Test();
    return isShown ? result : throw std::runtime_error("The box was not shown");
}

/// The text of the question or of the confirmation.
inline QString textOf(Dialog& dialog, bool confirmation)
{
    QString text;
    if (confirmation) {
        dialog.Keep();
        text = dialog.text();
        dialog.hide();
    } else {
        ask(dialog, [&text](QMessageBox& box) { text = box.text(); });
    }
    return text;
}

/// Prints the answer of a non-interactive application, and whether a window was shown meanwhile.
inline int answerWithoutAsking(int argc, char** argv)
{
    const QApplication application(argc, argv);
    Services services;
    services.application.nonInteractive = true;
    Dialog dialog(nullptr, place, true);
    bool wasShown = false;
    QTimer::singleShot(0, &dialog, [&] {
        wasShown = true;
        dialog.done(0);
    });
    const bool answer = dialog.Test();
    std::printf("%d%d%d\n", answer, wasShown, dialog.isVisible());
    return 0;
}

/// The services around the question.
class RenderingQuestion
{
protected:
    void setUp()
    {
        m_services = std::make_unique<Services>();
        m_services->info.name = QStringLiteral("Kest Viewer");
    }

    std::unique_ptr<Services> m_services;
};
