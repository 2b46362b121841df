// SPDX-License-Identifier: MIT
#pragma once

#include "Run.h"
#include "RunRecord.h"

#include <memory>
#include <optional>

class common_CommonSettingsSet;

/// Repeats a recorded run exactly: with the same program, arguments, environment, folder and
/// machines file, whatever the current launch options.
namespace RecordedRun {

/// The model now, compared with the record.
enum class ModelState {
    Unchanged, ///< unchanged, or the record has no checksum
    Changed,
    Missing ///< not there, or not readable
};

/// Compares the model with the record. Reads the model: waits for the disk.
ModelState modelState(const RunRecord& record);

/// Whether the record has a copy of the model.
bool hasModelCopy(const RunRecord& record);

/// Result of writeModel().
struct ModelFile
{
    QString path;    ///< empty on failure
    QString problem; ///< why it failed, as a clause
};

/// Writes the recorded copy of the model into the model's folder, which has the files that it may
/// refer to: dipole-run17.nec. An existing file with the same content is used; other files are
/// never overwritten.
ModelFile writeModel(const RunRecord& record);

/// The machines file for a repetition: that of the run, with the left-out hosts as comments.
/// Nothing without a readable copy.
std::optional<QByteArray> machinesFile(const RunRecord& record);

/// Whether the record has the command of the run. It has none if the run was refused before its
/// component could be started.
bool hasCommand(const RunRecord& record);

/// Makes a run of that model: the recorded one or the file of writeModel(). Null if this kestdesk
/// does not know the component.
std::unique_ptr<Run> make(const RunRecord& record, const QString& model,
                          common_ActivePtr<ComponentRunner> runner, QObject* parent = nullptr);

/// Makes the run ready to start, instead of Run::setUp(). A run without a recorded command is set
/// up with the current launch options and the recorded run options.
RunSetup::Readiness setUp(Run& run, const RunRecord& record, common_CommonSettingsSet& settings);

} // namespace RecordedRun
