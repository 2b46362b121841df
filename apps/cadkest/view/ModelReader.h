// SPDX-License-Identifier: MIT
#pragma once

#include "Scene.h"

#include <QString>
#include <QStringList>

/// A model's file as far as it could be read.
struct ReadModel
{
    QString path; ///< absolute
    Scene scene;
    QStringList errors; ///< what is wrong, each with its line in the file
};

/// Reads the model that a user names; the suffix ".nec" may be left out.
ReadModel readModel(const QString& name);
