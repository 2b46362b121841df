// SPDX-License-Identifier: MIT
#pragma once

#include "SceneView.h"

#include <QMainWindow>

class QLabel;
class QMenu;
class RecentMenu;

class ModelWatcher;

/// Shows one model and follows its file.
class MainWindow : public QMainWindow
{
    Q_OBJECT

public:
    explicit MainWindow(QWidget* parent = nullptr);

    /// Shows a model as far as it can be read, with what is wrong with it above the view. One that
    /// cannot be read at all leaves the view as it is.
    void openModel(const QString& name);

    /// Reads the model again and keeps the view.
    void reload();

    /// Absolute path of the model that is shown; empty without one.
    [[nodiscard]] QString modelPath() const { return m_path; }

    [[nodiscard]] SceneView* view() const { return m_view; }

    /// Comes after the entry that opens a model, and opens models of before again. It stays the
    /// caller's.
    void addRecentMenu(RecentMenu* menu);

    /// The menu that further settings go into.
    [[nodiscard]] QMenu* settingsMenu() const { return m_settingsMenu; }

    /// Changes the renderer; where there is no hardware rendering, software rendering stays and
    /// a message says why. Returns whether the renderer is the requested one.
    bool setRendering(Rendering rendering);

    /// Shows why the requested hardware rendering is not available.
    void refuseHardware(const QString& reason) { showRendering(reason); }

Q_SIGNALS:
    /// A model was opened, by the user or by openModel().
    void modelOpened(const QString& path);

private:
    void makeMenus();
    void makeViewMenu();
    void showModel(const QString& name, bool isNew);
    void showErrors(const QString& name, const QStringList& errors, bool isShown);
    void showRendering(const QString& error);
    void askForModel();
    void savePicture();

    SceneView* m_view;
    QLabel* m_modelMessage;
    QLabel* m_renderingMessage;
    QLabel* m_renderingName;
    QMenu* m_fileMenu = nullptr;
    QMenu* m_settingsMenu = nullptr;
    ModelWatcher* m_watcher;
    QString m_path;
};
