// SPDX-License-Identifier: MIT
#include <common_InitialRenderingSettingsDialog.h>

#include <common_HelpClient.h>
#include <common_IApplication.h>
#include <common_IApplicationInfo.h>
#include <common_ServiceOf.h>

#include <QPushButton>

#include <cstdio>
#include <utility>

namespace {

constexpr const char* sourceFile =
    "src/settings/rendering/common_InitialRenderingSettingsDialog.cpp";

// One of the two things the box can be. The opening holds a place for the application's name
// wherever it says %1; the gap stands between the two paragraphs.
struct Form
{
    const char* title;
    const char* testButton;
    const char* opening;
    const char* gap;
};

constexpr Form testForm = {
    "3D rendering test", "Test hardware rendering",
    "<p>%1 is currently using software (slow) rendering, and will switch over "
    "to hardware (fast) rendering when the 'Test hardware rendering' button is pressed. If %1 ",
    ""};

constexpr Form keepForm = {
    "3D rendering test confirmation", "Keep hardware rendering",
    "<p>Please inspect and manipulate the displayed 3D view using the mouse. If the "
    "3D view renders without any problems then press the 'Keep hardware rendering' button. If %1 ",
    " "};

constexpr const char* advice =
    "closes unexpectedly during this test then try to update the graphics card "
    "drivers. Also see the User Guide for more information on supported "
    "graphics cards and drivers for hardware rendering.</p>";

constexpr const char* whereToChange =
    "<p>If needed, the rendering settings can be changed via %1.</p>";

// Each text is put into its own piece: a name that holds a "%1" itself stays as it is.
QString textOf(const Form& form, const QString& settingsLocation)
{
    const QString name = common_ServiceOf<common_IApplicationInfo>::getService(
                             "common_IApplicationInfo", sourceFile, __LINE__)
                             ->applicationName();
    return QString::fromLatin1(form.opening).arg(name) + QLatin1String(advice) +
           QLatin1String(form.gap) + QString::fromLatin1(whereToChange).arg(settingsLocation);
}

void turnInto(const Form& form, QMessageBox& box, QPushButton& testButton,
              const QString& settingsLocation)
{
    box.setWindowTitle(QLatin1String(form.title));
    testButton.setText(QLatin1String(form.testButton));
    box.setText(textOf(form, settingsLocation));
}

// The title bar is to have neither a button for help nor one to close: the answers are below.
void setFlags(QMessageBox& box)
{
    const Qt::WindowFlags unwanted = Qt::WindowContextHelpButtonHint | Qt::WindowCloseButtonHint;
    box.setWindowFlags((box.windowFlags() & ~unwanted) | Qt::Dialog | Qt::CustomizeWindowHint);
}

} // namespace

common_InitialRenderingSettingsDialog::common_InitialRenderingSettingsDialog(
    QWidget* parent, QString settingsLocation, bool nonModal)
    : QMessageBox(parent), m_settingsLocation(std::move(settingsLocation))
{
    if (nonModal) {
        setWindowModality(Qt::NonModal);
    }
    setFlags(*this);
    setIcon(QMessageBox::Information);
    m_pTestButton = addButton(QString(), QMessageBox::AcceptRole);
    m_pSoftwareButton =
        addButton(QStringLiteral("Use software rendering"), QMessageBox::RejectRole);
    common_ServiceOf<common_HelpClient>::getService("common_HelpClient", sourceFile, __LINE__)
        ->registerPage(this, QStringLiteral("online_InitialRenderingSettingsDialog"));
}

bool common_InitialRenderingSettingsDialog::Test()
{
    const auto* const application = common_ServiceOf<common_IApplication>::getService(
        "common_IApplication", sourceFile, __LINE__);
    if (application->isNonInteractive()) {
        std::puts("Defaulting to software rendering for non-interactive mode");
        std::fflush(stdout);
        return false;
    }
    turnInto(testForm, *this, *m_pTestButton, m_settingsLocation);
    return exec() == 0;
}

void common_InitialRenderingSettingsDialog::Keep()
{
    turnInto(keepForm, *this, *m_pTestButton, m_settingsLocation);
    setFlags(*this);
    show();
}
