// SPDX-License-Identifier: MIT
#include "MainWindow.h"

#include "ModelReader.h"
#include "ModelWatcher.h"
#include "PictureFile.h"

#include <FileDrop.h>
#include <OpenDialog.h>
#include <RecentMenu.h>
#include <VisibleText.h>
#include <WindowTitle.h>

#include <QAction>
#include <QFileDialog>
#include <QFileInfo>
#include <QLabel>
#include <QMenuBar>
#include <QStatusBar>
#include <QVBoxLayout>

#include <array>

namespace {

constexpr int mostErrorsShown = 5;
constexpr int statusMargin = 6; // a maximised window has no grip that keeps the text from its edge

QLabel* makeMessage(const QString& name, QWidget* parent)
{
    auto* label = new QLabel(parent);
    label->setObjectName(name);
    label->setTextFormat(Qt::PlainText); // files' names and contents are in it
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    label->setWordWrap(true);
    label->setMargin(8);
    label->setAutoFillBackground(true);
    label->setBackgroundRole(QPalette::ToolTipBase);
    label->setForegroundRole(QPalette::ToolTipText);
    label->hide();
    return label;
}

void setMessage(QLabel* label, const QString& text)
{
    label->setText(text);
    label->setVisible(!text.isEmpty());
}

QString renderingName(Rendering rendering)
{
    return rendering == Rendering::Hardware ? MainWindow::tr("Hardware rendering")
                                            : MainWindow::tr("Software rendering");
}

} // namespace

MainWindow::MainWindow(QWidget* parent)
    : QMainWindow(parent)
    , m_view(new SceneView(this))
    , m_modelMessage(makeMessage(QStringLiteral("modelMessage"), this))
    , m_renderingMessage(makeMessage(QStringLiteral("renderingMessage"), this))
    , m_renderingName(new QLabel(this))
    , m_watcher(new ModelWatcher(this))
{
    setObjectName(QStringLiteral("cadkestWindow"));
    setWindowTitle(QStringLiteral("cadkest"));
    auto* centre = new QWidget(this);
    auto* layout = new QVBoxLayout(centre);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(m_modelMessage);
    layout->addWidget(m_renderingMessage);
    layout->addWidget(m_view, 1);
    setCentralWidget(centre);
    m_renderingName->setObjectName(QStringLiteral("renderingName"));
    m_renderingName->setContentsMargins(0, 0, statusMargin, 0);
    statusBar()->addPermanentWidget(m_renderingName);
    makeMenus();
    showRendering(QString());
    resize(900, 700);
    m_view->setFocus();
    connect(new FileDrop(this), &FileDrop::dropped, this,
            [this](const QStringList& files) { openModel(files.first()); });
    connect(m_watcher, &ModelWatcher::changed, this, &MainWindow::reload);
    connect(m_view, &SceneView::hardwareFailed, this, &MainWindow::showRendering);
}

void MainWindow::openModel(const QString& name)
{
    showModel(name, true);
}

void MainWindow::reload()
{
    if (!m_path.isEmpty()) {
        showModel(m_path, false);
    }
}

void MainWindow::addRecentMenu(RecentMenu* menu)
{
    connect(menu, &RecentMenu::fileChosen, this, &MainWindow::openModel);
    connect(this, &MainWindow::modelOpened, menu, &RecentMenu::addFile);
    m_fileMenu->insertMenu(findChild<QAction*>(QStringLiteral("actionReload")), menu);
}

bool MainWindow::setRendering(Rendering rendering)
{
    const QString error = m_view->setRendering(rendering);
    showRendering(error);
    return error.isEmpty();
}

void MainWindow::makeMenus()
{
    struct Item
    {
        const char* name;
        const char* text;
        QKeySequence keys;
        void (MainWindow::*act)();
    };
    const std::array<Item, 3> items = {{
        {"actionOpen", QT_TR_NOOP("&Open..."), QKeySequence::Open, &MainWindow::askForModel},
        {"actionReload", QT_TR_NOOP("&Reload"), Qt::Key_F5, &MainWindow::reload},
        {"actionSavePicture", QT_TR_NOOP("Save &picture..."), QKeySequence::Save,
         &MainWindow::savePicture},
    }};
    QMenu* menu = menuBar()->addMenu(tr("&File"));
    m_fileMenu = menu;
    for (const Item& item : items) {
        QAction* action = menu->addAction(tr(item.text), this, item.act);
        action->setObjectName(QString::fromLatin1(item.name));
        action->setShortcut(item.keys);
    }
    menu->addSeparator();
    QAction* quit = menu->addAction(tr("&Quit"), this, &QWidget::close);
    quit->setObjectName(QStringLiteral("actionQuit"));
    quit->setShortcut(QKeySequence::Quit);
    makeViewMenu();
    m_settingsMenu = menuBar()->addMenu(tr("&Settings"));
}

void MainWindow::makeViewMenu()
{
    // The keys are the view's, which knows more of them; they are only shown here.
    struct Item
    {
        const char* name;
        const char* text;
        Direction direction;
    };
    static constexpr std::array<Item, 4> items = {{
        {"actionCorner", QT_TR_NOOP("From a &corner\t0"), Direction::Isometric},
        {"actionAlongY", QT_TR_NOOP("Along &y\t1"), Direction::Y},
        {"actionAlongX", QT_TR_NOOP("Along &x\t3"), Direction::X},
        {"actionAbove", QT_TR_NOOP("From &above\t7"), Direction::Z},
    }};
    QMenu* menu = menuBar()->addMenu(tr("&View"));
    menu->addAction(tr("&Fit\tHome"), m_view, &SceneView::fit)
        ->setObjectName(QStringLiteral("actionFit"));
    menu->addSeparator();
    for (const Item& item : items) {
        QAction* action = menu->addAction(tr(item.text), this,
                                          [this, item] { m_view->lookFrom(item.direction); });
        action->setObjectName(QString::fromLatin1(item.name));
    }
    menu->addSeparator();
    QAction* thickness = menu->addAction(tr("&True radii"));
    thickness->setObjectName(QStringLiteral("actionTrueRadii"));
    thickness->setCheckable(true);
    connect(thickness, &QAction::toggled, this, [this](bool isTrue) {
        m_view->setThickness(isTrue ? Thickness::True : Thickness::Readable);
    });
}

void MainWindow::showModel(const QString& name, bool isNew)
{
    const ReadModel model = readModel(name);
    const QString fileName = suite::visibleFileName(model.path);
    const bool isShown = model.errors.isEmpty() || !model.scene.structure.wires.isEmpty();
    showErrors(isShown ? fileName : suite::visiblePath(model.path), model.errors, isShown);
    if (isNew && (isShown || m_path.isEmpty())) {
        // Also one that is not there yet: it is shown as soon as it can be read.
        m_path = model.path;
        m_watcher->watch(m_path);
        setWindowTitle(WindowTitle::of(m_path, QStringLiteral(" - cadkest")));
    }
    if (!isShown) {
        return;
    }
    m_view->setScene(model.scene, fileName);
    if (isNew) {
        m_view->fit();
        Q_EMIT modelOpened(m_path);
    }
}

void MainWindow::showErrors(const QString& name, const QStringList& errors, bool isShown)
{
    if (errors.isEmpty()) {
        setMessage(m_modelMessage, QString());
        return;
    }
    QStringList lines = errors.mid(0, mostErrorsShown);
    if (errors.size() > lines.size()) {
        lines.append(tr("and %1 more").arg(errors.size() - lines.size()));
    }
    lines.prepend(isShown ? tr("%1 has mistakes; what could be read is shown:").arg(name)
                          : tr("%1 cannot be shown:").arg(name));
    setMessage(m_modelMessage, lines.join(QLatin1Char('\n')));
}

void MainWindow::showRendering(const QString& error)
{
    m_renderingName->setText(renderingName(m_view->rendering()));
    setMessage(m_renderingMessage,
               error.isEmpty()
                   ? QString()
                   : tr("Hardware rendering is not available: %1. Software rendering is used.")
                         .arg(error));
}

void MainWindow::askForModel()
{
    const QString name = OpenDialog::file(this, tr("Open model"), QFileInfo(m_path).absolutePath(),
                                          tr("Models (*.nec);;All files (*)"));
    if (!name.isEmpty()) {
        openModel(name);
    }
}

void MainWindow::savePicture()
{
    const QString name = QFileDialog::getSaveFileName(
        this, tr("Save picture"), QFileInfo(m_path).absolutePath(), tr("Pictures (*.png)"));
    if (name.isEmpty()) {
        return;
    }
    const QString error = writePicture(m_view->picture(), name);
    statusBar()->showMessage(error.isEmpty() ? tr("%1 is saved").arg(suite::visiblePath(name))
                                             : tr("The picture is not saved: %1").arg(error));
}
