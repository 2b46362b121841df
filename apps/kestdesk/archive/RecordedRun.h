#pragma once

#include "Run.h"
#include "RunRecord.h"

#include <memory>

class common_CommonSettingsSet;

/// Runs a recorded run once more, exactly as it was: the same program, arguments, environment and
/// folder, and the same machines file, whatever the user's launch options are by now.
namespace RecordedRun {

/// What has become of the model since.
enum class ModelState {
    Unchanged, ///< as it was, or the record does not know how it was
    Changed,
    Missing ///< not there, or not readable
};

/// Reads the model.
ModelState modelState(const RunRecord& record);

/// Whether the record has the model as it was.
bool hasModelCopy(const RunRecord& record);

/// Where writeModel() has written the model.
struct ModelFile
{
    QString path;    ///< empty where that failed
    QString problem; ///< why it failed, as a clause
};

/// Writes the model as it was beside the model, where the files are that it may refer to:
/// dipole-run17.nec. A file that has this content already is used; others are never overwritten.
ModelFile writeModel(const RunRecord& record);

/// Whether the record says how the run is started. Of a run that was refused before its component
/// could be started it does not.
bool hasCommand(const RunRecord& record);

/// A run of that model, which is the recorded one or what writeModel() has written. Null when this
/// kestdesk does not know the component.
std::unique_ptr<Run> make(const RunRecord& record, const QString& model,
                          common_ActivePtr<ComponentRunner> runner, QObject* parent = nullptr);

/// Makes the run ready to start, in place of Run::setUp(). A run without a command is set up as the
/// user's launch options say now, with the recorded run options.
RunSetup::Readiness setUp(Run& run, const RunRecord& record, common_CommonSettingsSet& settings);

} // namespace RecordedRun
